#pragma once
// A private X server for the tests that need a real display, and the small X tools that drive
// and read it (xdotool, xclip) run as other processes would.
#include <QElapsedTimer>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QTest>

class XvfbServer
{
public:
    ~XvfbServer()
    {
        tray.terminate();
        tray.waitForFinished(3000);
        stop();
    }

    // Starts Xvfb on a free display of its own choosing; the display name, or "" on failure.
    // Xvfb writes the number only once it accepts clients, so nobody connects too early (a
    // socket file left by an earlier server is no sign of this one); a first client is let in
    // before the display is handed out, and what a server that failed said goes to the log.
    QString start()
    {
        if (launch() && answers())
            return display;
        qWarning().noquote() << "Xvfb did not take a client:" << report();
        stop();
        display.clear();
        return display;
    }

    // How the server is doing, for whoever reads a failure: its state and what it wrote.
    QString report()
    {
        return QStringLiteral("display %1, %2, exit code %3, it said: %4")
            .arg(display, xvfb.state() == QProcess::Running ? QStringLiteral("running") : QStringLiteral("not running"))
            .arg(xvfb.exitCode())
            .arg(QString::fromLocal8Bit(xvfb.readAllStandardError()).trimmed());
    }

    // A notification area on this display (trayer), up once its window is; false without it.
    bool startTray()
    {
        const QString host = QStandardPaths::findExecutable(QStringLiteral("trayer"));
        if (host.isEmpty())
            return false;
        tray.setProcessEnvironment(environment());
        tray.start(host,
            { QStringLiteral("--edge"), QStringLiteral("top"), QStringLiteral("--align"), QStringLiteral("right"),
                QStringLiteral("--widthtype"), QStringLiteral("pixel"), QStringLiteral("--width"),
                QStringLiteral("100"), QStringLiteral("--height"), QStringLiteral("24") });
        QElapsedTimer waited;
        waited.start();
        while (tray.state() != QProcess::NotRunning && waited.elapsed() < 5000
            && run(QStringLiteral("xdotool"),
                { QStringLiteral("search"), QStringLiteral("--class"), QStringLiteral("trayer") })
                   .isEmpty())
            QTest::qWait(50);
        return tray.state() == QProcess::Running;
    }

    // The environment of a program on this display: no offscreen platform, no program-folder
    // override (the program finds its folder beside itself).
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

    // The first visible window whose name matches the pattern, "" while there is none.
    QString window(const QString& namePattern) const
    {
        return run(QStringLiteral("xdotool"),
            { QStringLiteral("search"), QStringLiteral("--onlyvisible"), QStringLiteral("--name"), namePattern })
            .split(QLatin1Char('\n'))
            .first();
    }

    QProcess xvfb;
    QProcess tray;
    QString display;

private:
    bool launch()
    {
        const QString server = QStandardPaths::findExecutable(QStringLiteral("Xvfb"));
        if (server.isEmpty())
            return false;
        // -noreset: by default the server starts over each time its last client leaves, and a
        // client that comes at that moment is turned away ("could not connect to display") or
        // left waiting for ever. Every xdotool call here is a client that comes and goes.
        xvfb.start(server,
            { QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-noreset"), QStringLiteral("-screen"),
                QStringLiteral("0"), QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"),
                QStringLiteral("tcp") });
        if (!xvfb.waitForStarted())
            return false;
        QByteArray number;
        QElapsedTimer waited;
        waited.start();
        while (!number.endsWith('\n') && waited.elapsed() < 10000 && xvfb.state() == QProcess::Running) {
            xvfb.waitForReadyRead(100);
            number += xvfb.readAllStandardOutput();
        }
        display = QLatin1Char(':') + QString::fromLatin1(number.trimmed());
        return !number.trimmed().isEmpty();
    }

    // A real client on the display: the server is there and lets it in.
    bool answers() const
    {
        QElapsedTimer waited;
        waited.start();
        do {
            QProcess probe;
            probe.setProcessEnvironment(environment());
            probe.start(QStringLiteral("xdotool"), { QStringLiteral("getdisplaygeometry") });
            if (probe.waitForFinished(5000) && probe.exitStatus() == QProcess::NormalExit && probe.exitCode() == 0)
                return true;
            QTest::qWait(200);
        } while (waited.elapsed() < 5000);
        return false;
    }

    // Terminated, not killed: a killed server leaves its socket file and lock behind.
    void stop()
    {
        if (xvfb.state() == QProcess::NotRunning)
            return;
        xvfb.terminate();
        if (!xvfb.waitForFinished(10000)) {
            xvfb.kill();
            xvfb.waitForFinished(3000);
        }
    }
};
