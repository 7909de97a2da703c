#pragma once
// What every test shares: a temporary world (program folder, data folder, registry, home), and
// message boxes answered by script and recorded for assertions.
#include "platform/MessageBox.h"
#include "platform/Runtime.h"
#include "platform/Shell.h"

#include <QDir>
#include <QFile>
#include <QList>
#include <QTemporaryDir>
#include <QTest>

#include <stdexcept>

#include <csignal>

struct ProcessEnded : std::runtime_error
{
    explicit ProcessEnded(int c)
        : std::runtime_error("process ended")
        , code(c)
    {
    }
    int code;
};

// Records every message box and answers from a queue (then with the default button).
class MessageBoxScript
{
public:
    MessageBoxScript()
    {
        platform::SetMessageBoxBackend([this](const platform::MessageBoxCall& call) {
            shown.append(call);
            return answers.isEmpty() ? platform::DefaultAnswer(call.flags) : answers.takeFirst();
        });
    }
    ~MessageBoxScript() { platform::SetMessageBoxBackend({}); }
    void answer(int result) { answers.append(result); }

    QList<platform::MessageBoxCall> shown;
    QList<int> answers;
};

// Records the shell's calls and answers each with the next result (then 42).
struct ShellScript
{
    ShellScript()
    {
        platform::SetShellBackend([this](const platform::ShellCall& call) {
            calls.append(call);
            return results.isEmpty() ? 42 : results.takeFirst();
        });
    }
    ~ShellScript() { platform::SetShellBackend({}); }
    QList<platform::ShellCall> calls;
    QList<int> results;
};

// A fresh world in a temporary folder. The program folder is a copy of the source tree's
// data/program, so tests may change it.
class TestWorld
{
public:
    TestWorld()
    {
        root = dir.path();
        for (const char* sub : { "home", "appdata", "registry", "machine", "program", "run" })
            QDir().mkpath(root + QLatin1Char('/') + QLatin1String(sub));
        qputenv("TOLVANE_DRIVE_C", (root + QStringLiteral("/home")).toLocal8Bit());
        qputenv("TOLVANE_APPDATA", (root + QStringLiteral("/appdata")).toLocal8Bit());
        qputenv("TOLVANE_REGISTRY", (root + QStringLiteral("/registry")).toLocal8Bit());
        qputenv("TOLVANE_REGISTRY_MACHINE", (root + QStringLiteral("/machine")).toLocal8Bit());
        qputenv("TOLVANE_PROGRAM_DIR", (root + QStringLiteral("/program")).toLocal8Bit());
        qputenv("TOLVANE_RUNTIME_DIR", (root + QStringLiteral("/run")).toLocal8Bit());
        qputenv("TOLVANE_MEDIA", "");
        // No test reaches the maker's server: the discard port refuses at once.
        qputenv("TOLVANE_SERVER_ADDRESS", "http://127.0.0.1:9");
        copyTree(QStringLiteral(TOLVANE_SOURCE_PROGRAM_DIR), root + QStringLiteral("/program"));
        platform::SetEndProcessHook([](int code) { throw ProcessEnded(code); });
    }
    ~TestWorld() { platform::SetEndProcessHook({}); }

    QString path(const QString& relative) const { return root + QLatin1Char('/') + relative; }
    QByteArray read(const QString& relative) const
    {
        QFile f(path(relative));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    void write(const QString& relative, const QByteArray& bytes) const
    {
        QDir().mkpath(QFileInfo(path(relative)).absolutePath());
        QFile f(path(relative));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    // A running copy of the program in this world, by the file it keeps while it runs; 0 when
    // none runs.
    qint64 runningCopy() const
    {
        const QStringList copies = QDir(path(QStringLiteral("run"))).entryList({ QStringLiteral("*.run") });
        for (const QString& name : copies) {
            const qint64 pid = name.section(QLatin1Char('.'), 2, 2).toLongLong();
            if (pid > 0 && ::kill(static_cast<pid_t>(pid), 0) == 0 && pid != QCoreApplication::applicationPid())
                return pid;
        }
        return 0;
    }

    static void copyTree(const QString& from, const QString& to)
    {
        QDir source(from);
        QDir().mkpath(to);
        for (const QFileInfo& info : source.entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden)) {
            const QString target = to + QLatin1Char('/') + info.fileName();
            if (info.isDir())
                copyTree(info.filePath(), target);
            else
                QFile::copy(info.filePath(), target);
        }
    }

    QTemporaryDir dir;
    QString root;
};
