// SPDX-License-Identifier: GPL-3.0-or-later
#include "tool/ProfileCommands.h"

#include "core/DataRoot.h"
#include "core/DataTree.h"
#include "core/EntrySearch.h"
#include "core/ListControl.h"
#include "core/ListOrder.h"
#include "core/LoginOffer.h"
#include "core/PasswordRecipe.h"
#include "core/ProfileMarkers.h"
#include "core/VaultFile.h"
#include "platform/ClipboardKeeper.h"
#include "platform/CodePage.h"
#include "platform/Display.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Terminal.h"
#include "tool/CommandHelp.h"
#include "tool/EntryJson.h"
#include "tool/KeePassCsv.h"
#include "tool/KeePassXml.h"

#include <QDir>
#include <QFileInfo>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>

namespace {

// A value as the boxes show it: the codec's padding zeros end it.
QString shown(const QByteArray& value)
{
    return RowText(Shown(value));
}

const QString masked = QStringLiteral("********");

// What import reads at the most: another keeper's export with its history and attachments, of
// which a vault keeps 32 KB.
constexpr qint64 largestImport = 16 * 1024 * 1024;

void print(const QString& text)
{
    std::fputs(text.toLocal8Bit().constData(), stdout);
}

void printJson(const QJsonDocument& document)
{
    print(QString::fromUtf8(document.toJson(QJsonDocument::Indented)));
}

int refuse(const QString& message)
{
    std::fprintf(stderr, "tolvane-vault: %s\n", message.toLocal8Bit().constData());
    return 1;
}

void warn(const QString& message)
{
    std::fprintf(stderr, "tolvane-vault: warning: %s\n", message.toLocal8Bit().constData());
}

const QStringList flagNames = { QStringLiteral("json"), QStringLiteral("show-password"), QStringLiteral("ask-password"),
    QStringLiteral("generate"), QStringLiteral("letters"), QStringLiteral("digits"), QStringLiteral("mixed"),
    QStringLiteral("help"), QStringLiteral("replace"), QStringLiteral("strong") };
const QStringList optionNames = { QStringLiteral("profile"), QStringLiteral("seconds"), QStringLiteral("length"),
    QStringLiteral("title"), QStringLiteral("user"), QStringLiteral("password"), QStringLiteral("passphrase"),
    QStringLiteral("url"), QStringLiteral("document"), QStringLiteral("note"), QStringLiteral("format") };

} // namespace

ProfileCommands::ProfileCommands(const QStringList& arguments)
{
    bool optionsEnded = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& a = arguments.at(i);
        if (a == QLatin1String("-h") && !optionsEnded) {
            flags.insert(QStringLiteral("help"));
            continue;
        }
        // show's -a FIELD, as keepassxc-cli spells --attribute.
        const bool shortAttribute = a == QLatin1String("-a") && !optionsEnded;
        if (!shortAttribute && (optionsEnded || !a.startsWith(QLatin1String("--")) || a == QLatin1String("--"))) {
            if (a == QLatin1String("--") && !optionsEnded)
                optionsEnded = true;
            else if (command.isEmpty())
                command = a;
            else
                positional.append(a);
            continue;
        }
        QString name = shortAttribute ? QStringLiteral("attribute") : a.mid(2);
        std::optional<QString> value;
        if (const qsizetype eq = name.indexOf(QLatin1Char('=')); eq >= 0) {
            value = name.mid(eq + 1);
            name.truncate(eq);
        }
        if (flagNames.contains(name) && !value) {
            flags.insert(name);
        } else if (optionNames.contains(name) || name == QLatin1String("attribute")) {
            if (!value) {
                if (++i >= arguments.size()) {
                    parseError = QStringLiteral("--%1 needs a value").arg(name);
                    return;
                }
                value = arguments.at(i);
            }
            if (name == QLatin1String("attribute")) // may be given again: each field printed in turn
                attributes.append(*value);
            else
                options.insert(name, *value);
        } else {
            parseError = QStringLiteral("unknown option %1").arg(a);
            return;
        }
    }
}

const ProfileCommands::Verb ProfileCommands::verbs[] = {
    { "profiles", 0, 0, &ProfileCommands::profiles },
    { "ls", 0, 0, &ProfileCommands::list },
    { "search", 1, 1, &ProfileCommands::search },
    { "show", 1, 1, &ProfileCommands::show },
    { "clip", 1, 2, &ProfileCommands::clip },
    { "generate", 0, 0, &ProfileCommands::generate },
    { "add", 1, 1, &ProfileCommands::add },
    { "edit", 1, 1, &ProfileCommands::edit },
    { "rm", 1, 1, &ProfileCommands::remove },
    { "export", 0, 0, &ProfileCommands::exportEntries },
    { "import", 1, 1, &ProfileCommands::importEntries },
};

const ProfileCommands::Verb* ProfileCommands::verbNamed(const QString& name)
{
    for (const Verb& verb : verbs) {
        if (name == QLatin1String(verb.name))
            return &verb;
    }
    return nullptr;
}

bool ProfileCommands::Handles(const QString& command)
{
    return verbNamed(command) != nullptr;
}

const char* ProfileCommands::Usage()
{
    return R"(Commands on a profile of your data tree, with the program's own rules:
  profiles                the profiles the login lists, one a line (no password asked)
  ls                      the titles, in the order of the program's list
  search TEXT             the program's search: the rows it lists, in its order
  show TITLE              every field of the entry; the password masked
  show TITLE -a FIELD     that field alone, raw; the password in clear
  clip TITLE [FIELD]      the field (default: password) on the clipboard for a while
  generate                a password from the program's generator
  add TITLE               a new entry, with the field options below
  edit TITLE              change the fields given below (--title NEW renames it)
  rm TITLE                remove the entry
  export                  the profile on standard output as KeePass 2 XML (--format json)
  import FILE             entries of KeePassXC's CSV, JSON or XML (--format, --replace)

Options of the profile commands:
  --profile NAME          the profile; without it, the one the program's login offers.
                          A profile with a password asks for it (without echo on a
                          terminal; otherwise the first line of standard input)
  --json                  ls, search and show print JSON
  --show-password         show prints the password in clear
  -a, --attribute FIELD   show: print only this field (repeatable, in the order given)
  --seconds N             clip: clear the clipboard after N seconds (default 10),
                          unless something else was copied meanwhile
  --letters, --digits, --mixed
                          generate: letters a to y, digits 0 to 8, or both (default)
  --length N              generate: 4 to 15 characters (default 5); with --strong, 8 to 48
                          (default 20)
  --strong                generate, and add or edit with --generate: upper and lower case,
                          digits and symbols that the vault keeps as they are, each kind
                          at least once, from the system's random source
  --title NEW             edit: the new title, refused when an entry has it already
  --user TEXT             add, edit: the user name
  --password TEXT         add, edit: the password (seen by other users' process lists;
                          --ask-password is safer)
  --passphrase TEXT       add, edit: the pass phrase
  --url TEXT              add, edit: the web address
  --document TEXT         add, edit: the path of a document
  --note TEXT             add, edit: the note
  --ask-password          add, edit: the password typed without echo
  --generate              add, edit: a password from the generator (--length, --letters...)
  --format FORMAT         export: xml (default) or json; import: keepassxc-csv, json or
                          xml (default: told by the file's ending)
  --replace               import: entries of titles already listed are replaced in place
FIELD is one of title, user, passphrase, password, url, document, note.
A write is refused while the program runs on the data tree (from its login on, whatever
folder it was started from): it writes the vault when it ends. Writes of several tools at
once wait for each other. Titles hold no line break or tab, and only letters of the files'
code page.
)";
}

std::optional<QString> ProfileCommands::option(const char* name) const
{
    const auto found = options.find(QLatin1String(name));
    if (found == options.end())
        return std::nullopt;
    return *found;
}

int ProfileCommands::usageError(const QString& message) const
{
    // The command's own help, where the overview would bury it.
    const QString help = CommandHelp(command);
    std::fprintf(stderr, "tolvane-vault: %s\n\n%s", message.toLocal8Bit().constData(),
        help.isEmpty() ? Usage() : help.toLocal8Bit().constData());
    return 2;
}

int ProfileCommands::run()
{
    if (!parseError.isEmpty())
        return usageError(parseError);
    const Verb* verb = verbNamed(command);
    if (positional.size() < verb->fewest || positional.size() > verb->most)
        return usageError(QStringLiteral("%1: wrong number of arguments").arg(command));
    // An option the command has no use for would be dropped without a word (export --replace).
    QStringList given = flags.values() + options.keys();
    if (!attributes.isEmpty())
        given.append(QStringLiteral("attribute"));
    for (const QString& name : std::as_const(given)) {
        if (!CommandTakes(command, name))
            return usageError(QStringLiteral("%1 has no option --%2").arg(command, name));
    }
    if (flag("strong") && (flag("letters") || flag("digits") || flag("mixed")))
        return usageError(QStringLiteral("--strong has its own characters: no --letters, --digits or --mixed"));
    // add and edit take the generator's options for --generate only: alone they would be dropped.
    const bool generatorOptions = flag("strong") || flag("letters") || flag("digits") || flag("mixed")
        || options.contains(QStringLiteral("length"));
    if (generatorOptions && command != QLatin1String("generate") && !flag("generate"))
        return usageError(QStringLiteral("--strong, --length, --letters, --digits and --mixed go with --generate"));
    // Every argument but search's text and import's file is a title.
    if (!positional.isEmpty() && command != QLatin1String("search") && command != QLatin1String("import")) {
        if (const QString fault = TitleFault(positional.at(0)); !fault.isEmpty())
            return refuse(fault);
    }
    return (this->*verb->run)();
}

std::optional<ProfileCommands::Profile> ProfileCommands::openProfile()
{
    QString name;
    if (const std::optional<QString> given = option("profile")) {
        // A name goes through the code page once, as the program takes it where it is typed.
        name = Shown(Stored(*given));
        if (!ProfileMarkerExists(name)) {
            refuse(QStringLiteral("there is no profile \"%1\"").arg(name));
            return std::nullopt;
        }
    } else {
        StringListControl listed;
        LoadComboFile(DataFolder() + QStringLiteral("users.txt"), listed);
        const LoginOffer offer = OfferedLogin(listed.items);
        if (offer.kind == LoginOffer::Kind::FirstStart) {
            refuse(QStringLiteral("no profile yet: start Tolvane once, and it lays down the data tree"));
            return std::nullopt;
        }
        if (offer.kind == LoginOffer::Kind::DefaultLost)
            warn(QStringLiteral("the default profile is missing; the login offers Administrator"));
        if (offer.profile.isEmpty()) {
            refuse(QStringLiteral("the login offers no profile; name one with --profile"));
            return std::nullopt;
        }
        name = offer.profile;
    }
    const QString stored = StoredPassword(name);
    // A profile without a password opens without asking, as the login opens the one it offers,
    // also when the default profile is lost and Administrator is offered.
    if (!stored.isEmpty()) {
        bool tooLong = false;
        const std::optional<QString> typed
            = platform::ReadSecretLine(QStringLiteral("Password for %1: ").arg(name), &tooLong);
        if (!typed) {
            refuse(tooLong
                    ? QStringLiteral("the password line is longer than %1 bytes").arg(platform::LongestSecretLine)
                    : QStringLiteral("no password given for profile \"%1\"").arg(name));
            return std::nullopt;
        }
        if (!PasswordOpens(stored, *typed)) {
            refuse(QStringLiteral("wrong password for profile \"%1\"").arg(name));
            return std::nullopt;
        }
    }
    return Profile { name, DataFolder() + name + QStringLiteral("\\list.dat") };
}

std::optional<ProfileCommands::OpenVault> ProfileCommands::openVault(bool toWrite)
{
    std::optional<Profile> profile = openProfile();
    if (!profile)
        return std::nullopt;
    if (toWrite && !takeNewPassword())
        return std::nullopt;
    return readVault(*profile, toWrite);
}

std::optional<ProfileCommands::OpenVault> ProfileCommands::readVault(const Profile& profile, bool toWrite)
{
    if (toWrite) {
        // Taken after the passwords, so that a tool waiting at its prompt holds nothing; held
        // from the read to the write, so that no other writer's change falls between.
        writeLock = std::make_unique<platform::TreeWriteLock>(DataFolder());
        switch (writeLock->State()) {
        case platform::TreeLock::Taken:
            break;
        case platform::TreeLock::ProgramRuns:
            refuse(QStringLiteral("Tolvane is running: it writes the vault when it ends and would overwrite "
                                  "this change. End it (File > Close) and try again; nothing was written"));
            return std::nullopt;
        case platform::TreeLock::Unavailable:
            refuse(QStringLiteral("can't lock the data tree of profile \"%1\"; nothing was written").arg(profile.name));
            return std::nullopt;
        }
    }
    OpenVault opened { profile, {} };
    // Nothing a vault can be is larger; a missing file is an empty vault, as the load makes it.
    const platform::ReadOutcome read = opened.entries.read(profile.vault);
    if (read != platform::ReadOutcome::Read && read != platform::ReadOutcome::Missing) {
        refuse(QStringLiteral("can't read the vault of profile \"%1\"").arg(profile.name));
        return std::nullopt;
    }
    return opened;
}

std::optional<ProfileCommands::OpenVault> ProfileCommands::openEntry(bool toWrite)
{
    std::optional<OpenVault> vault = openVault(toWrite);
    if (!vault)
        return std::nullopt;
    vault->index = lastIndexOf(vault->entries.all(), positional.at(0));
    if (vault->index < 0) {
        refuse(QStringLiteral("no entry titled \"%1\"").arg(positional.at(0)));
        return std::nullopt;
    }
    return vault;
}

QHash<QByteArray, int> ProfileCommands::lastIndexes(const QList<Entry>& entries)
{
    QHash<QByteArray, int> at;
    at.reserve(entries.size());
    for (qsizetype i = 0; i < entries.size(); ++i)
        at.insert(entries.at(i).title, static_cast<int>(i));
    return at;
}

int ProfileCommands::lastIndexOf(const QList<Entry>& entries, const QString& title)
{
    const QByteArray key = Stored(title);
    for (qsizetype i = entries.size() - 1; i >= 0; --i) {
        if (entries.at(i).title == key)
            return static_cast<int>(i);
    }
    return -1;
}

int ProfileCommands::list()
{
    const std::optional<OpenVault> vault = openVault();
    if (!vault)
        return 1;
    QStringList titles;
    for (const Entry& e : vault->entries)
        titles.append(Shown(e.title));
    titles = SortedRows(titles);
    if (flag("json"))
        printJson(QJsonDocument(QJsonArray::fromStringList(titles)));
    else
        print(titles.join(QLatin1Char('\n')) + (titles.isEmpty() ? QString() : QStringLiteral("\n")));
    return 0;
}

int ProfileCommands::search()
{
    const QString needle = positional.at(0).toLower(); // not trimmed: blanks count
    if (needle.isEmpty())
        return refuse(QStringLiteral("the search text is empty"));
    const std::optional<OpenVault> vault = openVault();
    if (!vault)
        return 1;
    QStringList rows;
    for (const Entry& e : vault->entries) {
        if (const std::optional<QString> row = SearchRow(e, needle))
            rows.append(*row);
    }
    rows = SortedRows(rows);
    // As grep and keepassxc-cli: a script tells "nothing found" by the exit code.
    if (rows.isEmpty())
        return refuse(QStringLiteral("no entry matches \"%1\"").arg(positional.at(0)));
    if (flag("json")) {
        QJsonArray array;
        for (const QString& row : rows)
            array.append(QJsonObject { { QStringLiteral("row"), row }, { QStringLiteral("title"), RowTitle(row) } });
        printJson(QJsonDocument(array));
    } else {
        print(rows.join(QLatin1Char('\n')) + QLatin1Char('\n'));
    }
    return 0;
}

int ProfileCommands::show()
{
    QList<const EntryField*> asked;
    for (const QString& name : attributes) {
        asked.append(ShownFieldNamed(name));
        if (!asked.last())
            return usageError(QStringLiteral("no field \"%1\"").arg(name));
    }
    if (!asked.isEmpty() && flag("json"))
        return usageError(QStringLiteral("show: -a prints the fields raw, not as JSON"));
    const std::optional<OpenVault> vault = openEntry();
    if (!vault)
        return 1;
    const Entry& e = vault->entries.at(vault->index);
    if (!asked.isEmpty()) {
        // Raw, for $(...): named fields are printed as they are, the password too.
        for (const EntryField* f : asked)
            print(shown(e.*f->member) + QLatin1Char('\n'));
        return 0;
    }
    const bool clear = flag("show-password");
    QJsonObject object;
    QString text;
    // The JSON has every field, the picture too, as every JSON of the tool; the text what the
    // window shows.
    for (const EntryField& f : EntryFields) {
        const bool hidden = f.member == &Entry::password && !clear && !(e.*f.member).isEmpty();
        const QString value = hidden ? masked : shown(e.*f.member);
        object.insert(QLatin1String(f.name), value);
        if (f.member != &Entry::picture)
            text += QStringLiteral("%1:").arg(QLatin1String(f.label)).leftJustified(12) + value + QLatin1Char('\n');
    }
    flag("json") ? printJson(QJsonDocument(object)) : print(text);
    return 0;
}

int ProfileCommands::clip()
{
    const QString fieldName = positional.value(1, QStringLiteral("password"));
    const EntryField* field = ShownFieldNamed(fieldName);
    if (!field)
        return usageError(QStringLiteral("no field \"%1\"").arg(fieldName));
    bool ok = true;
    const int seconds = option("seconds").value_or(QStringLiteral("10")).toInt(&ok);
    if (!ok || seconds < 1 || seconds > 86400)
        return usageError(QStringLiteral("--seconds takes a whole number of seconds, 1 to 86400 (a day)"));
    if (!platform::DisplayAnswers())
        return refuse(QStringLiteral("clip needs a desktop session's clipboard, and there is no display"));
    // Without the keeper there is nobody to hold the text with its secret mark and empty the
    // clipboard in time: a copy carried away without it says so rather than copy otherwise.
    const QString keeper = platform::ClipboardKeeperBeside();
    if (keeper.isEmpty())
        return refuse(QStringLiteral("clip needs tolvane-clipboard-keeper beside the tool to hold the clipboard, "
                                     "and this copy has none"));
    const std::optional<OpenVault> vault = openEntry();
    if (!vault)
        return 1;
    // The program's own copy: the code page's text (already 8-bit), marked secret.
    const QString text = shown(vault->entries.at(vault->index).*field->member);
    const QByteArray what = QByteArray(field->label).toLower();
    const bool held = platform::HoldOnClipboard(keeper, text, seconds, [&] {
        std::fprintf(stderr, "The %s of \"%s\" is on the clipboard for %d second%s (Ctrl+C clears it now).\n",
            what.constData(), positional.at(0).toLocal8Bit().constData(), seconds, seconds == 1 ? "" : "s");
    });
    return held ? 0 : refuse(QStringLiteral("the %1 could not be put on the clipboard").arg(QLatin1String(what)));
}

std::optional<QString> ProfileCommands::generatedPassword()
{
    bool ok = true;
    if (flag("strong")) {
        const int length = option("length").value_or(QStringLiteral("20")).toInt(&ok);
        if (!ok || length < ShortestStrongPassword || length > LongestStrongPassword) {
            refuse(QStringLiteral("--length takes %1 to %2 with --strong: fewer is weak, and the vault gives no "
                                  "longer value back whole")
                       .arg(ShortestStrongPassword)
                       .arg(LongestStrongPassword));
            return std::nullopt;
        }
        return GenerateStrongPassword(length);
    }
    const int length = option("length").value_or(QStringLiteral("5")).toInt(&ok);
    if (!ok || length < 4 || length > 15) {
        refuse(QStringLiteral("--length takes 4 to 15, as the generator does"));
        return std::nullopt;
    }
    if (int(flag("letters")) + int(flag("digits")) + int(flag("mixed")) > 1) {
        refuse(QStringLiteral("choose one of --letters, --digits and --mixed"));
        return std::nullopt;
    }
    const PasswordAlphabet alphabet = flag("letters") ? PasswordAlphabet::Letters
        : flag("digits")                              ? PasswordAlphabet::Digits
                                                      : PasswordAlphabet::DigitsAndLetters;
    SystemRandomSource source;
    return GeneratePassword(alphabet, length, source);
}

int ProfileCommands::profiles()
{
    // The login's list, as it shows it: no profile is opened, so no password is asked.
    StringListControl listed;
    LoadComboFile(DataFolder() + QStringLiteral("users.txt"), listed);
    if (listed.items.isEmpty())
        return refuse(QStringLiteral("no profile yet: start Tolvane once, and it lays down the data tree"));
    for (const QString& name : listed.items)
        print(name + QLatin1Char('\n'));
    return 0;
}

int ProfileCommands::generate()
{
    const std::optional<QString> password = generatedPassword();
    if (!password)
        return 1;
    print(*password + QLatin1Char('\n'));
    return 0;
}

bool ProfileCommands::takeNewPassword()
{
    const int passwordSources
        = int(options.contains(QStringLiteral("password"))) + int(flag("ask-password")) + int(flag("generate"));
    if (passwordSources > 1) {
        refuse(QStringLiteral("choose one of --password, --ask-password and --generate"));
        return false;
    }
    if (flag("ask-password")) {
        bool tooLong = false;
        const std::optional<QString> typed = platform::ReadSecretLine(QStringLiteral("New password: "), &tooLong);
        if (!typed) {
            refuse(tooLong
                    ? QStringLiteral("the password line is longer than %1 bytes").arg(platform::LongestSecretLine)
                    : QStringLiteral("no password given"));
            return false;
        }
        newPassword = *typed;
    } else if (flag("generate")) {
        newPassword = generatedPassword();
        if (!newPassword)
            return false;
        std::fprintf(stderr, "Generated password: %s\n", newPassword->toLocal8Bit().constData());
    }
    return true;
}

namespace {

// The text into the field, and a warning when the files' code page changes it.
void storeText(Entry& entry, const EntryField& f, const QString& value)
{
    entry.*f.member = Stored(value);
    if (Shown(entry.*f.member) != value)
        warn(QStringLiteral("the %1 of \"%2\" holds characters that the files' code page lacks: it is kept as \"%3\"")
                 .arg(QLatin1String(f.name), Shown(entry.title), Shown(entry.*f.member)));
}

} // namespace

void ProfileCommands::applyFieldOptions(Entry& entry)
{
    for (const EntryField& f : ShownFields) {
        const std::optional<QString> value = f.member == &Entry::title ? std::nullopt : option(f.name);
        if (value)
            storeText(entry, f, *value);
    }
    if (newPassword)
        entry.password = Stored(*newPassword);
}

int ProfileCommands::writeEntries(const Profile& profile, Vault& entries, const QStringList& changedTitles)
{
    // What the next load will give back of the entries: the format keeps 48 characters of a
    // value, escapes "&", "=", "[", "]" and line breaks, and a save escapes what an earlier one did.
    QList<Entry> copy = entries.all();
    const QList<Entry> readBack = changedTitles.isEmpty() ? QList<Entry>() : ParseInnerText(ComposeInnerText(copy));
    const QHash<QByteArray, int> changedAt = lastIndexes(entries.all()), backAt = lastIndexes(readBack);
    for (const QString& title : changedTitles) {
        const int changed = changedAt.value(Stored(title), -1);
        const int back = backAt.value(Stored(title), -1);
        if (changed < 0 || back < 0)
            continue;
        for (const EntryField& f : ShownFields) {
            if (shown(readBack.at(back).*f.member) != shown(entries.at(changed).*f.member))
                warn(QStringLiteral("the %1 of \"%2\" will read back as \"%3\"")
                         .arg(QLatin1String(f.name), title, shown(readBack.at(back).*f.member)));
        }
    }
    switch (entries.save(profile.vault)) {
    case VaultSave::Saved:
        return 0;
    case VaultSave::TooLarge:
        return refuse(QStringLiteral("the vault would pass %1 bytes, which the program can't keep; nothing was written")
                          .arg(MaxVaultText));
    case VaultSave::WriteFailed:
        break;
    }
    return refuse(QStringLiteral("can't write the vault of profile \"%1\"; it is as it was").arg(profile.name));
}

QString ProfileCommands::TitleFault(const QString& title)
{
    if (title.contains(QLatin1Char('\r')) || title.contains(QLatin1Char('\n')) || title.contains(QLatin1Char('\t')))
        return QStringLiteral("a title can't hold a line break or a tab");
    if (!platform::CodePageHolds(title))
        return QStringLiteral("the title \"%1\" holds letters that the files' code page (Windows-%2) can't hold")
            .arg(title)
            .arg(platform::CodePageNumber());
    return QString();
}

int ProfileCommands::add()
{
    const QString title = Shown(Stored(positional.at(0)));
    if (title.isEmpty())
        return refuse(QStringLiteral("the title of the entry must not be empty"));
    std::optional<OpenVault> vault = openVault(true);
    if (!vault)
        return 1;
    // The new-entry dialog refuses a title that stands as a row of the full list.
    if (lastIndexOf(vault->entries.all(), title) >= 0)
        return refuse(QStringLiteral("an entry titled \"%1\" is already in the list").arg(title));
    Entry entry;
    entry.title = Stored(title);
    applyFieldOptions(entry);
    vault->entries.insert(vault->entries.count(), entry);
    return writeEntries(vault->profile, vault->entries, { title });
}

int ProfileCommands::edit()
{
    // Every save escapes escaped values once more: a write that changes nothing is no write.
    const bool anyField = std::any_of(std::begin(ShownFields), std::end(ShownFields),
                              [this](const EntryField& f) { return options.contains(QLatin1String(f.name)); })
        || flag("ask-password") || flag("generate");
    if (!anyField)
        return usageError(QStringLiteral("edit: give at least one field to change"));
    // The new title as the file will keep it, with the rules of a title on the command line.
    const std::optional<QString> newTitle = option("title");
    if (newTitle) {
        if (const QString fault = TitleFault(*newTitle); !fault.isEmpty())
            return refuse(fault);
        if (Shown(Stored(*newTitle)).isEmpty())
            return refuse(QStringLiteral("the title of the entry must not be empty"));
    }
    std::optional<OpenVault> vault = openEntry(true);
    if (!vault)
        return 1;
    // The title is the entry's key: two entries of one title would leave the first unreachable.
    if (newTitle && lastIndexOf(vault->entries.all(), *newTitle) >= 0)
        return refuse(QStringLiteral("an entry titled \"%1\" is already in the list; nothing was changed")
                          .arg(Shown(Stored(*newTitle))));
    Entry& entry = vault->entries[vault->index];
    if (newTitle)
        entry.title = Stored(*newTitle);
    applyFieldOptions(entry);
    return writeEntries(vault->profile, vault->entries, { Shown(entry.title) });
}

int ProfileCommands::remove()
{
    std::optional<OpenVault> vault = openEntry(true);
    if (!vault)
        return 1;
    vault->entries.remove(vault->index);
    // The program saves only a list with rows: its last entry, deleted, comes back at the next start.
    if (vault->entries.count() == 0)
        return refuse(QStringLiteral("\"%1\" is the last entry: the program saves no empty list, so it would be back "
                                     "at the next start; nothing was changed")
                          .arg(positional.at(0)));
    return writeEntries(vault->profile, vault->entries, {});
}

int ProfileCommands::exportEntries()
{
    const QString format = option("format").value_or(QStringLiteral("xml"));
    if (format != QLatin1String("xml") && format != QLatin1String("json"))
        return usageError(QStringLiteral("export: --format is xml or json"));
    const std::optional<OpenVault> vault = openVault();
    if (!vault)
        return 1;
    // The program writes the vault when it ends: until then the file may lack its changes.
    if (platform::TreeWriteLock(DataFolder()).State() == platform::TreeLock::ProgramRuns)
        warn(QStringLiteral("Tolvane is running: this is the vault as it was last saved, without what the program "
                            "has not written yet. End it (File > Close) and export again to have everything"));
    QStringList warnings;
    const QByteArray out = format == QLatin1String("json")
        ? EntriesJson(vault->entries.all())
        : KeePassXml(vault->profile.name, vault->entries.all(), warnings);
    for (const QString& w : warnings)
        warn(w);
    std::fwrite(out.constData(), 1, static_cast<size_t>(out.size()), stdout);
    return 0;
}

int ProfileCommands::importEntries()
{
    const QString file = positional.at(0);
    const QString named = file == QLatin1String("-") ? QStringLiteral("standard input") : file;
    // Without --format, the file's name tells.
    const QString suffix = QFileInfo(file).suffix().toLower();
    const QString format = option("format").value_or(suffix == QLatin1String("csv") ? QStringLiteral("keepassxc-csv")
            : suffix == QLatin1String("json") || suffix == QLatin1String("xml")     ? suffix
                                                                                    : QString());
    if (format.isEmpty())
        return usageError(QStringLiteral("import: give --format keepassxc-csv, json or xml"));
    if (format != QLatin1String("keepassxc-csv") && format != QLatin1String("json") && format != QLatin1String("xml"))
        return usageError(QStringLiteral("import: --format is keepassxc-csv, json or xml"));
    const std::optional<Profile> profile = openProfile();
    if (!profile)
        return 1;
    // After the password, which a script gives as standard input's first line.
    QByteArray bytes;
    const platform::ReadOutcome read = file == QLatin1String("-")
        ? (platform::ReadStandardInput(bytes, largestImport) ? platform::ReadOutcome::Read
                                                             : platform::ReadOutcome::TooLarge)
        : platform::ReadFileBounded(platform::ToWindows(QDir::current().absoluteFilePath(file)), largestImport, bytes);
    switch (read) {
    case platform::ReadOutcome::Read:
        break;
    case platform::ReadOutcome::Missing:
        return refuse(QStringLiteral("no such file: %1").arg(file));
    case platform::ReadOutcome::TooLarge:
        return refuse(QStringLiteral("%1 is larger than %2 bytes, far more than a vault holds: it was not read")
                          .arg(named)
                          .arg(largestImport));
    default:
        return refuse(QStringLiteral("can't read %1 (only a regular file is read)").arg(file));
    }
    QString error;
    QStringList warnings;
    const std::optional<QList<EntryTexts>> texts = format == QLatin1String("json") ? EntriesFromJson(bytes, error)
        : format == QLatin1String("xml") ? EntriesFromKeePassXml(bytes, error, warnings)
                                         : EntriesFromKeePassCsv(bytes, error, warnings);
    if (!texts)
        return refuse(QStringLiteral("%1: %2; nothing was written").arg(named, error));
    if (texts->isEmpty())
        return refuse(QStringLiteral("%1 holds no entries; nothing was written").arg(named));
    // The title is an entry's key: each must be one the file keeps as it is, and once.
    QStringList titles, twice;
    QSet<QString> seen;
    for (const EntryTexts& t : *texts) {
        const QString title = t.value(QStringLiteral("title"));
        if (title.isEmpty())
            return refuse(QStringLiteral("%1: an entry has no title, and the program writes no entry without one; "
                                         "nothing was written")
                              .arg(named));
        if (const QString fault = TitleFault(title); !fault.isEmpty())
            return refuse(fault + QStringLiteral("; nothing was written"));
        if (seen.contains(title) && !twice.contains(title))
            twice.append(title);
        seen.insert(title);
        titles.append(title);
    }
    if (!twice.isEmpty())
        return refuse(QStringLiteral("%1 has several entries titled \"%2\"; nothing was written")
                          .arg(named, twice.join(QStringLiteral("\", \""))));
    std::optional<OpenVault> vault = readVault(*profile, true);
    if (!vault)
        return 1;
    QStringList taken;
    const QHash<QByteArray, int> existing = lastIndexes(vault->entries.all());
    for (const QString& title : titles) {
        if (existing.contains(Stored(title)))
            taken.append(title);
    }
    if (!taken.isEmpty() && !flag("replace"))
        return refuse(QStringLiteral("the profile has entries titled \"%1\" already (--replace replaces them); "
                                     "nothing was written")
                          .arg(taken.join(QStringLiteral("\", \""))));
    for (const QString& w : warnings)
        warn(w);
    // As add puts a new entry, at the end; one of a title taken where it stands.
    for (const EntryTexts& t : *texts) {
        // What the format has no place for (the CSV's pass phrase, document and picture) stays as
        // the entry it replaces has it.
        Entry entry;
        if (const int at = existing.value(Stored(t.value(QStringLiteral("title"))), -1); at >= 0)
            entry = vault->entries.at(at);
        for (const EntryField& f : EntryFields) {
            if (t.contains(QLatin1String(f.name)) || format != QLatin1String("keepassxc-csv"))
                storeText(entry, f, t.value(QLatin1String(f.name)));
        }
        vault->entries.store(entry);
    }
    return writeEntries(vault->profile, vault->entries, titles);
}
