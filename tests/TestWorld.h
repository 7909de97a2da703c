// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What every test shares: a world in a temporary folder (program folder, data folder, registry,
// home, runtime folder), message boxes and the shell answered by script and recorded, and the
// end of the process turned into an exception.
#include "platform/MessageBox.h"
#include "platform/Runtime.h"
#include "platform/Shell.h"
#include "platform/TreeLock.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <stdexcept>

struct ProcessEnded : std::runtime_error
{
    explicit ProcessEnded(int c)
        : std::runtime_error("process ended")
        , code(c)
    {
    }
    int code;
};

// Every message box, as "flags|title|text", answered from a queue and then by its default button.
struct MessageBoxScript
{
    MessageBoxScript()
    {
        platform::SetMessageBoxBackend([this](const platform::MessageBoxCall& call) {
            shown.append(call);
            return answers.isEmpty() ? platform::DefaultAnswer(call.flags) : answers.takeFirst();
        });
    }
    ~MessageBoxScript() { platform::SetMessageBoxBackend({}); }
    void answer(platform::MessageAnswer result) { answers.append(result); }
    QString last() const { return all().value(all().size() - 1); }
    QStringList all() const
    {
        QStringList out;
        for (const auto& c : shown)
            out << QStringLiteral("%1|%2|%3").arg(c.flags).arg(c.title, c.text);
        return out;
    }
    QList<platform::MessageBoxCall> shown;
    QList<platform::MessageAnswer> answers;
};

// The shell's calls, each answered with the next result (then 42, a start).
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

class TestWorld
{
public:
    TestWorld()
    {
        for (const char* sub : { "home", "appdata", "registry", "machine", "program", "run" })
            QDir().mkpath(path(QLatin1String(sub)));
        const std::pair<const char*, const char*> moved[]
            = { { "TOLVANE_DRIVE_C", "home" }, { "TOLVANE_APPDATA", "appdata" }, { "TOLVANE_REGISTRY", "registry" },
                  { "TOLVANE_REGISTRY_MACHINE", "machine" }, { "TOLVANE_PROGRAM_DIR", "program" },
                  { "TOLVANE_RUNTIME_DIR", "run" } };
        for (const auto& [variable, folder] : moved)
            qputenv(variable, path(QLatin1String(folder)).toLocal8Bit());
        qputenv("TOLVANE_MEDIA", "");
        // No test reaches the maker's server: the discard port refuses at once.
        qputenv("TOLVANE_SERVER_ADDRESS", "http://127.0.0.1:9");
        copyTree(QStringLiteral(TOLVANE_SOURCE_PROGRAM_DIR), path(QStringLiteral("program")));
        platform::SetEndProcessHook([](int code) {
            platform::ReleaseTreeForRun(); // as the end of a process lets its data tree go
            throw ProcessEnded(code);
        });
    }
    ~TestWorld() { platform::SetEndProcessHook({}); }

    QString path(const QString& relative) const { return dir.path() + QLatin1Char('/') + relative; }
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
    // A running copy of the program in this world, by the file it keeps while it runs; 0 if none.
    qint64 runningCopy() const
    {
        for (const QString& name : QDir(path(QStringLiteral("run"))).entryList({ QStringLiteral("*.run") })) {
            const qint64 pid = name.section(QLatin1Char('.'), 2, 2).toLongLong();
            if (pid > 0 && pid != QCoreApplication::applicationPid() && ::kill(static_cast<pid_t>(pid), 0) == 0)
                return pid;
        }
        return 0;
    }
    static void copyTree(const QString& from, const QString& to)
    {
        QDir().mkpath(to);
        for (const QFileInfo& info : QDir(from).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden)) {
            const QString target = to + QLatin1Char('/') + info.fileName();
            if (info.isDir())
                copyTree(info.filePath(), target);
            else
                QFile::copy(info.filePath(), target);
        }
    }

    QTemporaryDir dir;
};
