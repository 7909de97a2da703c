// SPDX-License-Identifier: GPL-3.0-or-later
// The terminal tool's reading commands on a profile of 300 entries, and its export and import of
// them (into an empty profile, emptied again before each run), each timed as a whole process,
// median of the rounds, beside the program's own load of that vault: from its start to
// its end, and the processor time it took (which other work on the machine does not stretch).
// Other builds of the tool given after the rounds run the same commands in turn with this one,
// so that their figures come from one run on one machine's load.
// Run: build/bench/bench_tool [rounds] [other tolvane-vault ...]
#include "core/VaultFile.h"
#include "platform/Paths.h"
#include "platform/Runtime.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

extern char** environ;

namespace {

double median(QList<double> times)
{
    std::sort(times.begin(), times.end());
    return times.at(times.size() / 2);
}

struct Times
{
    double wall = -1; // negative when it failed or printed nothing
    double processor = -1;
};

// One run of the tool, its output into a file, in milliseconds; a command that prints must print.
Times timedRun(const QByteArray& tool, const QList<QByteArray>& arguments, const QByteArray& output, bool prints)
{
    std::vector<QByteArray> kept { tool };
    kept.insert(kept.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (QByteArray& a : kept)
        argv.push_back(a.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 1, output.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    QElapsedTimer t;
    t.start();
    pid_t id = 0;
    const bool started = posix_spawn(&id, tool.constData(), &actions, nullptr, argv.data(), environ) == 0;
    int status = 0;
    rusage used {};
    const bool ended = started && wait4(id, &status, 0, &used) == id;
    const double ms = t.nsecsElapsed() / 1e6;
    posix_spawn_file_actions_destroy(&actions);
    struct stat written
    {
    };
    const bool printed = ::stat(output.constData(), &written) == 0 && written.st_size > 0;
    if (!ended || !WIFEXITED(status) || WEXITSTATUS(status) != 0 || (prints && !printed))
        return {};
    const auto msOf = [](const timeval& v) { return v.tv_sec * 1e3 + v.tv_usec / 1e3; };
    return { ms, msOf(used.ru_utime) + msOf(used.ru_stime) };
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const int rounds = argc > 1 ? std::max(1, atoi(argv[1])) : 21;
    QList<QByteArray> tools { QByteArrayLiteral(TOLVANE_VAULT_TOOL) };
    for (int i = 2; i < argc; ++i)
        tools.append(QFile::encodeName(QDir::current().absoluteFilePath(QString::fromLocal8Bit(argv[i]))));

    // A profile of 300 short entries (title, user name, password, address), as the login opens it.
    QTemporaryDir dir;
    const QString data = dir.path() + QStringLiteral("/Brenmark/Tolvane/data/");
    QDir().mkpath(data + QStringLiteral("Administrator"));
    QDir().mkpath(data + QStringLiteral("Empty"));
    QList<Entry> profile;
    for (int i = 0; i < 300; ++i)
        profile.append(Entry { "Site " + QByteArray::number(i), "pw-" + QByteArray::number(i * 7919), {},
            "user" + QByteArray::number(i), "https://site" + QByteArray::number(i) + ".example", {}, {}, {} });
    const QString vault = platform::ToWindows(data + QStringLiteral("Administrator/list.dat"));
    if (SaveVault(vault, profile) != VaultSave::Saved)
        return 1;
    for (const auto& [file, text] : { std::pair { "users.txt", "Administrator\r\nEmpty\r\n" },
             { "Administrator/dummy.dat", "x" }, { "Empty/dummy.dat", "x" },
             { "config.txt", "[user]\r\ncurrent=Administrator\r\ndefault=Administrator\r\n" } }) {
        QFile f(data + QLatin1String(file));
        if (!f.open(QIODevice::WriteOnly) || f.write(text) < 0)
            return 1;
    }
    qputenv("TOLVANE_APPDATA", dir.path().toLocal8Bit());
    qputenv("TOLVANE_REGISTRY", (dir.path() + QStringLiteral("/registry")).toLocal8Bit());

    // The program's own load of the vault at its login, in its process, yields included: it reads
    // the file and writes it back, so a copy of it is loaded, each time afresh.
    const QString copy = dir.path() + QStringLiteral("/loaded.dat");
    QList<double> loads;
    for (int r = 0; r < rounds; ++r) {
        QFile::remove(copy);
        if (!QFile::copy(platform::ToNative(vault), copy))
            return 1;
        QElapsedTimer t;
        t.start();
        if (LoadVault(platform::ToWindows(copy), Yield(&platform::YieldStep)).entries.size() != profile.size())
            return 1;
        loads << t.nsecsElapsed() / 1e6;
    }

    const QByteArray file = QFile::encodeName(platform::ToNative(vault));
    // What import reads: the profile's own JSON export, and the CSV that KeePassXC writes of it.
    const QByteArray json = QFile::encodeName(dir.path() + QStringLiteral("/profile.json"));
    const QByteArray csv = QFile::encodeName(dir.path() + QStringLiteral("/profile.csv"));
    QByteArray csvText = "\"Group\",\"Title\",\"Username\",\"Password\",\"URL\",\"Notes\",\"TOTP\",\"Icon\","
                         "\"Last Modified\",\"Created\"\n";
    for (const Entry& e : profile)
        csvText += "\"Administrator\",\"" + e.title + "\",\"" + e.userName + "\",\"" + e.password + "\",\"" + e.url
            + "\",\"\",\"\",\"0\",\"2026-01-01T00:00:00Z\",\"2026-01-01T00:00:00Z\"\n";
    QFile csvFile(QFile::decodeName(csv));
    if (!csvFile.open(QIODevice::WriteOnly) || csvFile.write(csvText) < 0
        || timedRun(tools.first(), { "export", "--format", "json" }, json, true).wall < 0)
        return 1;
    csvFile.close();
    struct Command
    {
        const char* name;
        QList<QByteArray> arguments;
        bool prints = true;
    };
    const Command commands[] = {
        { "ls", { "ls" } },
        { "search user1", { "search", "user1" } },
        { "show", { "show", "Site 150" } },
        { "show --json", { "show", "Site 150", "--json" } },
        { "dump", { "dump", file } },
        { "generate", { "generate", "--length", "12" } },
        { "export", { "export" } },
        { "export json", { "export", "--format", "json" } },
        { "import csv", { "import", csv, "--profile", "Empty" }, false },
        { "import json", { "import", json, "--profile", "Empty" }, false },
    };
    const QString emptied = data + QStringLiteral("Empty/list.dat");
    const QByteArray output = QFile::encodeName(dir.path() + QStringLiteral("/output"));
    // wall[command][tool] and processor[command][tool], the tools taking turns within each round.
    QList<QList<QList<double>>> wall(std::size(commands), QList<QList<double>>(tools.size()));
    QList<QList<QList<double>>> processor = wall;
    for (int r = 0; r < rounds; ++r) {
        for (size_t c = 0; c < std::size(commands); ++c) {
            for (qsizetype t = 0; t < tools.size(); ++t) {
                if (!commands[c].prints)
                    QFile::remove(emptied);
                const Times ms = timedRun(tools.at(t), commands[c].arguments, output, commands[c].prints);
                if (ms.wall < 0) {
                    std::fprintf(stderr, "%s %s failed\n", tools.at(t).constData(), commands[c].name);
                    return 1;
                }
                wall[c][t] << ms.wall;
                processor[c][t] << ms.processor;
            }
        }
    }

    std::printf("a profile of %lld entries, %d rounds; the program's load of its vault (read and written back): "
                "median %.2f ms\n",
        static_cast<long long>(profile.size()), rounds, median(loads));
    std::printf("tolvane-vault, whole process, median ms from start to end and of processor time:\n");
    for (qsizetype t = 0; t < tools.size(); ++t)
        std::printf("  [%lld] %s\n", static_cast<long long>(t + 1), tools.at(t).constData());
    std::printf("%-16s", "command");
    for (const char* kind : { "", " cpu" }) {
        for (qsizetype t = 0; t < tools.size(); ++t)
            std::printf("%10s", qPrintable(QStringLiteral("[%1]%2").arg(t + 1).arg(QLatin1String(kind))));
    }
    std::printf("\n");
    for (size_t c = 0; c < std::size(commands); ++c) {
        std::printf("%-16s", commands[c].name);
        for (const auto* times : { &wall, &processor }) {
            for (qsizetype t = 0; t < tools.size(); ++t)
                std::printf("%10.2f", median((*times)[c][t]));
        }
        std::printf("\n");
    }
    return 0;
}
