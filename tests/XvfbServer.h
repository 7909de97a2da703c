#pragma once
// A private X server for the tests that need a real display, driven and read by the X tools
// (xdotool, xclip) as other programs would.
#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>

class XvfbServer
{
public:
    ~XvfbServer()
    {
        tray.kill();
        tray.waitForFinished();
        // Terminated, not killed: a killed server leaves its socket file and lock behind.
        xvfb.terminate();
        xvfb.waitForFinished(10000);
    }

    // Xvfb on a display of its own choosing. It writes the number only once it takes clients (a
    // socket file left by an earlier server is no sign of this one), and a first client is let
    // in before the display counts as up. False, with what the server said, when it is not.
    bool start()
    {
        // -noreset: else the server starts over whenever its last client leaves, and turns away or
        // stalls a client that comes just then (each xdotool call is a client that comes and goes).
        xvfb.start(QStringLiteral("Xvfb"),
            QStringLiteral("-displayfd 1 -noreset -screen 0 1280x1024x24 -nolisten tcp").split(QLatin1Char(' ')));
        for (int tries = 0; xvfb.waitForStarted() && !xvfb.canReadLine() && tries < 100; ++tries)
            xvfb.waitForReadyRead(100);
        display = QLatin1Char(':') + QString::fromLatin1(xvfb.readLine().trimmed());
        for (int tries = 0; display.size() > 1 && tries < 25; ++tries, QTest::qWait(200)) {
            if (!xdotool(QStringLiteral("getdisplaygeometry")).isEmpty())
                return true;
        }
        qWarning().noquote() << "Xvfb did not take a client on" << display << xvfb.errorString()
                             << xvfb.readAllStandardError();
        return false;
    }

    // A notification area on this display (trayer), up once its window is.
    bool startTray()
    {
        tray.setProcessEnvironment(environment());
        tray.start(QStringLiteral("trayer"),
            QStringLiteral("--edge top --align right --widthtype pixel --width 100 --height 24")
                .split(QLatin1Char(' ')));
        for (int tries = 0; tray.waitForStarted() && tries < 100; ++tries, QTest::qWait(50)) {
            if (!xdotool(QStringLiteral("search --class trayer")).isEmpty())
                return true;
        }
        return false;
    }

    // A program on this display finds its folder beside itself.
    QProcessEnvironment environment() const
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.remove(QStringLiteral("TOLVANE_PROGRAM_DIR"));
        env.remove(QStringLiteral("QT_QPA_PLATFORM"));
        env.insert(QStringLiteral("DISPLAY"), display);
        return env;
    }

    // Runs a tool to its end; its standard output, trimmed.
    QString run(const QString& program, const QStringList& args) const
    {
        QProcess p;
        p.setProcessEnvironment(environment());
        p.start(program, args);
        p.waitForFinished(10000);
        return QString::fromUtf8(p.readAllStandardOutput()).trimmed();
    }

    // xdotool with these words and one last argument that may hold spaces.
    QString xdotool(const QString& words, const QString& last = {}) const
    {
        return run(QStringLiteral("xdotool"),
            words.split(QLatin1Char(' ')) + (last.isEmpty() ? QStringList() : QStringList { last }));
    }

    // The first visible window whose title matches the pattern, "" while there is none.
    QString window(const QString& title) const
    {
        return xdotool(QStringLiteral("search --onlyvisible --name"), title).section(QLatin1Char('\n'), 0, 0);
    }

    // The keys typed into that window, each given time to act.
    void keys(const QString& window, const QStringList& keys) const
    {
        QStringList args = { QStringLiteral("windowfocus"), QStringLiteral("--sync"), window };
        for (const QString& key : keys)
            args << QStringLiteral("sleep") << QStringLiteral("0.3") << QStringLiteral("key") << key;
        run(QStringLiteral("xdotool"), args << QStringLiteral("sleep") << QStringLiteral("0.3"));
    }

    QProcess xvfb, tray;
    QString display;
};
