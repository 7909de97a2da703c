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
        xvfb.terminate();
        xvfb.waitForFinished(3000);
    }

    // Starts Xvfb on a free display of its own choosing; the display name, or "" on failure.
    // Xvfb writes the number only once it accepts clients, so nobody connects too early (a
    // socket file left by an earlier server is no sign of this one).
    QString start()
    {
        const QString server = QStandardPaths::findExecutable(QStringLiteral("Xvfb"));
        if (server.isEmpty())
            return QString();
        xvfb.start(server,
            { QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"), QStringLiteral("0"),
                QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"), QStringLiteral("tcp") });
        if (!xvfb.waitForStarted())
            return QString();
        QByteArray number;
        QElapsedTimer waited;
        waited.start();
        while (!number.endsWith('\n') && waited.elapsed() < 10000 && xvfb.state() == QProcess::Running) {
            xvfb.waitForReadyRead(100);
            number += xvfb.readAllStandardOutput();
        }
        if (number.trimmed().isEmpty()) {
            xvfb.kill();
            return QString();
        }
        display = QLatin1Char(':') + QString::fromLatin1(number.trimmed());
        return display;
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
};
