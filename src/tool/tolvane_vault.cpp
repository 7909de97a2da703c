// SPDX-License-Identifier: GPL-3.0-or-later
// tolvane-vault: the vaults without the window, through the program's own code: a vault file in and out
// (dump, save, unwrap, rescue) here, the commands on a profile of the data tree in ProfileCommands.
#include "core/Base64Codec.h"
#include "core/DataRoot.h"
#include "core/InstallerLanguage.h"
#include "core/VaultFile.h"
#include "core/VaultRescue.h"
#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Terminal.h"
#include "platform/TreeLock.h"
#include "tool/CommandHelp.h"
#include "tool/EntryJson.h"
#include "tool/ProfileCommands.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <optional>

namespace {

const char* usage = R"(Usage: tolvane-vault COMMAND [ARGUMENT...] [OPTION...]
Read and change the vaults of Tolvane without the window, through the program's own code.

Commands on a vault file:
  dump FILE      print the entries as the program loads them, as JSON
  save FILE      write a vault from JSON on standard input, as the program saves
  unwrap FILE    print the inner text (the outer layer taken off); the file is not changed
  rescue FILE    print the entries with what the program's reading loses: long values whole,
                 escapes undone, padding cut

FILE is a list.dat or an exported .tvd file. An entry in JSON has title, user, password,
passphrase, url, document, note and picture, as show --json names them. Its texts are the
fields' bytes in the program's 8-bit code page (Windows-1250 or -1252, chosen at its first
start and kept; TOLVANE_CODEPAGE overrides it), so every byte survives a dump and a save
unchanged.

Only regular files are read and written, and none larger than any vault (1 MiB). A save
into a data tree takes the tree's lock, as the profile commands' writes do, and writes
through no link inside the tree.

Options:
  -h, --help     print this help and end; after a command, that command's own help
  --version      print the version and end
)";

const char* exitCodes = R"(
Exit codes: 0 done, 1 refused or bad input (a wrong password, a write while the program
runs, a missing or unreadable file, bad JSON, a vault too large, a failed write to standard
output; and, as for grep, a search that finds nothing), 2 usage.
)";

void printJson(const QList<Entry>& entries)
{
    const QByteArray out = EntriesJson(entries);
    std::fwrite(out.constData(), 1, static_cast<size_t>(out.size()), stdout);
}

int fail(const QString& message)
{
    std::fprintf(stderr, "tolvane-vault: %s\n", qPrintable(message));
    return 1;
}

QString pathArgument(const QString& given)
{
    // A native path as typed; the storage code takes Windows-form paths.
    return platform::ToWindows(QDir::current().absoluteFilePath(given));
}

// A JSON vault on standard input: every byte of a full vault escaped six times over, and more.
constexpr qint64 largestInput = 4 * 1024 * 1024;

// What is wrong with a path the tool can't read, in words.
QString unreadable(platform::ReadOutcome outcome, const QString& given)
{
    const QFileInfo info(given);
    switch (outcome) {
    case platform::ReadOutcome::Missing:
        return QStringLiteral("no such file: %1").arg(given);
    case platform::ReadOutcome::NotAFile:
        return info.isDir() ? QStringLiteral("%1 is a folder, not a vault file").arg(given)
                            : QStringLiteral("%1 is not a regular file (a pipe, a device or a socket)").arg(given);
    case platform::ReadOutcome::NotPermitted:
        return QStringLiteral("no permission to read %1").arg(given);
    case platform::ReadOutcome::TooLarge:
        return QStringLiteral("%1 is larger than %2 bytes, more than any vault file: it was not read")
            .arg(given)
            .arg(LargestVaultFile);
    case platform::ReadOutcome::Read:
    case platform::ReadOutcome::Failed:
        break;
    }
    return QStringLiteral("can't read %1").arg(given);
}

void printUsage(FILE* stream)
{
    std::fputs(usage, stream);
    std::fputs("\n", stream);
    std::fputs(ProfileCommands::Usage(), stream);
    std::fputs(exitCodes, stream);
}

} // namespace

namespace {

// The data tree a file lies in (its top folder, native), or nothing: the tool's own tree, found
// also through a link above it, or any tree of the program's making, ".../Brenmark/Tolvane/data".
QString dataTreeOf(const QString& nativeFile)
{
    const QString own = QFileInfo(platform::ToNative(DataFolder())).canonicalFilePath();
    QStringList parts = QFileInfo(nativeFile).absoluteFilePath().split(QLatin1Char('/'), Qt::SkipEmptyParts);
    for (parts.removeLast(); !parts.isEmpty(); parts.removeLast()) {
        const QString folder = QLatin1Char('/') + parts.join(QLatin1Char('/'));
        const bool named
            = parts.size() >= 3 && parts.mid(parts.size() - 3) == QStringList { "Brenmark", "Tolvane", "data" };
        if (named || (!own.isEmpty() && QFileInfo(folder).canonicalFilePath() == own))
            return folder;
    }
    return QString();
}

int save(const QString& given, const QString& path)
{
    // Only a regular file is replaced; a folder, a pipe or a device is left alone, and so is a
    // file larger than any vault.
    const QFileInfo target(given);
    // A link would be written through, past the checks below on where the file lies.
    if (target.isSymLink())
        return fail(QStringLiteral("%1 is a symbolic link: name the file itself; nothing was written").arg(given));
    if (target.exists() && !target.isFile())
        return fail(unreadable(platform::ReadOutcome::NotAFile, given));
    if (target.isFile() && target.size() > LargestVaultFile)
        return fail(unreadable(platform::ReadOutcome::TooLarge, given) + QStringLiteral("; nothing was written"));
    if (!QFileInfo(target.absolutePath()).isDir())
        return fail(QStringLiteral("no such folder: %1").arg(target.absolutePath()));
    QByteArray input;
    if (!platform::ReadStandardInput(input, largestInput))
        return fail(QStringLiteral("standard input is longer than %1 bytes: no vault is that large").arg(largestInput));
    QString error;
    const std::optional<QList<EntryTexts>> texts = EntriesFromJson(input, error);
    if (!texts)
        return fail(QStringLiteral("standard input: %1; nothing was written").arg(error));
    QList<Entry> entries;
    for (const EntryTexts& t : *texts) {
        if (const QString fault = ProfileCommands::TitleFault(t.value(QStringLiteral("title"))); !fault.isEmpty())
            return fail(fault);
        entries.append(StoredEntry(t));
    }
    // Inside a data tree the program's rules hold: no write through a link below its top folder,
    // and none while the program holds the tree (it would write its own copy over this one).
    std::optional<platform::TreeWriteLock> lock;
    QString savedAt = path;
    QString tree = dataTreeOf(platform::ToNative(path));
    if (tree.isEmpty()) { // a link from outside into a tree (to a profile's folder) finds it too
        const QString real
            = QFileInfo(target.absolutePath()).canonicalFilePath() + QLatin1Char('/') + target.fileName();
        if (tree = dataTreeOf(real); !tree.isEmpty())
            savedAt = platform::ToWindows(real);
    }
    if (!tree.isEmpty()) {
        platform::AddWorkingFolder(platform::ToWindows(tree));
        lock.emplace(platform::ToWindows(tree));
        if (lock->State() == platform::TreeLock::ProgramRuns)
            return fail(QStringLiteral("Tolvane is running on this data tree: it writes the vault when it ends and "
                                       "would overwrite this file. End it and try again; nothing was written"));
        if (lock->State() == platform::TreeLock::Unavailable)
            return fail(QStringLiteral("can't lock the data tree %1; nothing was written").arg(tree));
    }
    switch (SaveVault(savedAt, entries)) {
    case VaultSave::Saved:
        return 0;
    case VaultSave::TooLarge:
        return fail(QStringLiteral("the entries make a vault text over %1 bytes, which the program can't keep; "
                                   "nothing was written")
                        .arg(MaxVaultText));
    case VaultSave::WriteFailed:
        break;
    }
    return fail(QStringLiteral("can't write %1").arg(given));
}

int run(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments().mid(1);
    UseKeptCodePage(false); // the program's, whatever the locale says
    const ProfileCommands parsed(args);
    const QString command = parsed.Command();
    // --help after a command: that command alone; otherwise the whole help, exit codes included.
    if (parsed.HelpAsked()) {
        if (const QString help = CommandHelp(command); !help.isEmpty())
            std::fputs(help.toLocal8Bit().constData(), stdout);
        else
            printUsage(stdout);
        return 0;
    }
    if (ProfileCommands::Handles(command))
        return ProfileCommands(args).run();
    if (args.contains(QStringLiteral("--version"))) {
        std::puts("tolvane-vault " TOLVANE_VERSION);
        return 0;
    }
    if (CommandHelp(command).isEmpty()) { // neither a profile command nor a file command
        std::fprintf(stderr, "tolvane-vault: %s\n\n",
            command.isEmpty() ? "no command given" : qPrintable(QStringLiteral("no command \"%1\"").arg(command)));
        printUsage(stderr);
        return 2;
    }
    const std::optional<QStringList> files = parsed.PlainArguments();
    if (!files || files->size() != 1) {
        // A file command takes its file and nothing else: its own help says so.
        std::fprintf(stderr, "tolvane-vault: %s takes one FILE and no option\n\n%s", qPrintable(command),
            CommandHelp(command).toLocal8Bit().constData());
        return 2;
    }
    const QString given = files->at(0);
    const QString path = pathArgument(given);
    SetBadGroupHandler([](const QByteArray& four) {
        std::fprintf(stderr, "tolvane-vault: Illegal Characters <%s> found; the program would ask, going on as OK\n",
            four.constData());
        return true;
    });

    if (command == QLatin1String("save"))
        return save(given, path);
    QByteArray bytes;
    const platform::ReadOutcome read = platform::ReadFileBounded(path, LargestVaultFile, bytes);
    if (read != platform::ReadOutcome::Read)
        return fail(unreadable(read, given));
    const QByteArray inner = LayerOff(bytes);
    if (command == QLatin1String("unwrap")) {
        std::fwrite(inner.constData(), 1, static_cast<size_t>(inner.size()), stdout);
        return 0;
    }
    printJson(command == QLatin1String("dump") ? ParseInnerText(inner) : RescueInnerText(inner));
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    const int code = run(argc, argv);
    // What could not be written out (a full disk, a closed pipe) is no success.
    if (std::fflush(stdout) != 0 || std::ferror(stdout)) {
        std::fprintf(stderr, "tolvane-vault: can't write to standard output: %s\n", std::strerror(errno));
        return code == 0 ? 1 : code;
    }
    return code;
}
