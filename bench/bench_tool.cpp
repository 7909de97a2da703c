// SPDX-License-Identifier: GPL-3.0-or-later
// The terminal tool's reading commands on a profile of 300 entries, each timed as a whole
// process (start to exit), median of the rounds, beside the program's own load of that vault.
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
#include <sys/stat.h>
#include <sys/wait.h>

extern char** environ;

namespace {

double median(QList<double> times)
{
    std::sort(times.begin(), times.end());
    return times.at(times.size() / 2);
}

// One run of the tool, its output into a file: milliseconds from its start to its end, or a
// negative number when it failed or printed nothing.
double timedRun(const QByteArray& tool, const QList<QByteArray>& arguments, const QByteArray& output)
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
    const bool ended = started && waitpid(id, &status, 0) == id;
    const double ms = t.nsecsElapsed() / 1e6;
    posix_spawn_file_actions_destroy(&actions);
    struct stat written
    {
    };
    const bool printed = ::stat(output.constData(), &written) == 0 && written.st_size > 0;
    return ended && WIFEXITED(status) && WEXITSTATUS(status) == 0 && printed ? ms : -1;
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
    QList<Entry> profile;
    for (int i = 0; i < 300; ++i)
        profile.append(Entry { "Site " + QByteArray::number(i), "pw-" + QByteArray::number(i * 7919), {},
            "user" + QByteArray::number(i), "https://site" + QByteArray::number(i) + ".example", {}, {}, {} });
    const QString vault = platform::ToWindows(data + QStringLiteral("Administrator/list.dat"));
    if (SaveVault(vault, profile) != VaultSave::Saved)
        return 1;
    for (const auto& [file, text] :
        { std::pair { "users.txt", "Administrator\r\n" }, { "Administrator/dummy.dat", "x" },
            { "config.txt", "[user]\r\ncurrent=Administrator\r\ndefault=Administrator\r\n" } }) {
        QFile f(data + QLatin1String(file));
        if (!f.open(QIODevice::WriteOnly) || f.write(text) < 0)
            return 1;
    }
    qputenv("TOLVANE_APPDATA", dir.path().toLocal8Bit());
    qputenv("TOLVANE_REGISTRY", (dir.path() + QStringLiteral("/registry")).toLocal8Bit());

    // The program's own load of the vault at its login, in its process, yields included.
    QList<double> loads;
    for (int r = 0; r < rounds; ++r) {
        QElapsedTimer t;
        t.start();
        if (LoadVault(vault, Yield(&platform::YieldStep)).entries.size() != profile.size())
            return 1;
        loads << t.nsecsElapsed() / 1e6;
    }

    const QByteArray file = QFile::encodeName(platform::ToNative(vault));
    const std::pair<const char*, QList<QByteArray>> commands[] = {
        { "ls", { "ls" } },
        { "search user1", { "search", "user1" } },
        { "show", { "show", "Site 150" } },
        { "show --json", { "show", "Site 150", "--json" } },
        { "dump", { "dump", file } },
        { "generate", { "generate", "--length", "12" } },
    };
    const QByteArray output = QFile::encodeName(dir.path() + QStringLiteral("/output"));
    // times[command][tool], the tools taking turns within each round.
    QList<QList<QList<double>>> times(std::size(commands), QList<QList<double>>(tools.size()));
    for (int r = 0; r < rounds; ++r) {
        for (size_t c = 0; c < std::size(commands); ++c) {
            for (qsizetype t = 0; t < tools.size(); ++t) {
                const double ms = timedRun(tools.at(t), commands[c].second, output);
                if (ms < 0) {
                    std::fprintf(stderr, "%s %s failed\n", tools.at(t).constData(), commands[c].first);
                    return 1;
                }
                times[c][t] << ms;
            }
        }
    }

    std::printf("a profile of %lld entries, %d rounds; the program's load of its vault: median %.2f ms\n",
        static_cast<long long>(profile.size()), rounds, median(loads));
    std::printf("tolvane-vault, whole process, median ms:\n");
    for (qsizetype t = 0; t < tools.size(); ++t)
        std::printf("  [%lld] %s\n", static_cast<long long>(t + 1), tools.at(t).constData());
    std::printf("%-16s", "command");
    for (qsizetype t = 0; t < tools.size(); ++t)
        std::printf("%8s", qPrintable(QStringLiteral("[%1]").arg(t + 1)));
    std::printf("\n");
    for (size_t c = 0; c < std::size(commands); ++c) {
        std::printf("%-16s", commands[c].first);
        for (qsizetype t = 0; t < tools.size(); ++t)
            std::printf("%8.2f", median(times[c][t]));
        std::printf("\n");
    }
    return 0;
}
