// SPDX-License-Identifier: GPL-3.0-or-later
// Start-up and login figures with a vault of 300 entries behind a password:
//   - from process start (and from main) to the login window shown, the splash's three
//     seconds left out (its ticks are called at once);
//   - from the password's Enter to the vault window shown, median of the rounds;
//   - resident memory with the vault open.
// Run: build/bench/bench_login [rounds]   (offscreen unless DISPLAY is set)
// The windows are driven as a user drives them: the password box found by its caption.
#include "Ui.h"
#include "core/LanguageTable.h"
#include "core/PasswordDigest.h"
#include "core/ProfileFiles.h"
#include "core/RegistryLayer.h"
#include "core/VaultFile.h"
#include "platform/MessageBox.h"
#include "platform/Paths.h"
#include "program/ProgramWiring.h"
#include "windows/LoginDialog.h"
#include "windows/SplashWindow.h"
#include "windows/TrayHost.h"
#include "windows/VaultWindow.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cstdio>
#include <unistd.h>

namespace {

// Milliseconds since the process was started, from the kernel's record (10 ms steps).
double msSinceProcessStart()
{
    QFile stat(QStringLiteral("/proc/self/stat"));
    QFile uptime(QStringLiteral("/proc/uptime"));
    if (!stat.open(QIODevice::ReadOnly) || !uptime.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray s = stat.readAll();
    const QList<QByteArray> fields = s.mid(s.lastIndexOf(')') + 2).split(' ');
    const double startTicks = fields.value(19).toDouble(); // field 22 of the whole line
    const double up = uptime.readAll().split(' ').value(0).toDouble();
    return (up - startTicks / static_cast<double>(sysconf(_SC_CLK_TCK))) * 1000.0;
}

long residentKb()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').value(0).toLong();
    }
    return -1;
}

LoginDialog* shownLogin()
{
    for (QWidget* w : QApplication::topLevelWidgets()) {
        auto* l = qobject_cast<LoginDialog*>(w);
        if (l && !l->Unloaded() && l->isVisible())
            return l;
    }
    return nullptr;
}

} // namespace

int main(int argc, char* argv[])
{
    QElapsedTimer sinceMain;
    sinceMain.start();
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QTemporaryDir dir;
    for (const char* sub : { "home", "appdata", "registry", "machine", "run" })
        QDir().mkpath(dir.path() + QLatin1Char('/') + QLatin1String(sub));
    qputenv("TOLVANE_DRIVE_C", (dir.path() + QStringLiteral("/home")).toLocal8Bit());
    qputenv("TOLVANE_APPDATA", (dir.path() + QStringLiteral("/appdata")).toLocal8Bit());
    qputenv("TOLVANE_REGISTRY", (dir.path() + QStringLiteral("/registry")).toLocal8Bit());
    qputenv("TOLVANE_REGISTRY_MACHINE", (dir.path() + QStringLiteral("/machine")).toLocal8Bit());
    qputenv("TOLVANE_RUNTIME_DIR", (dir.path() + QStringLiteral("/run")).toLocal8Bit());
    qputenv("TOLVANE_PROGRAM_DIR", TOLVANE_BUILT_PROGRAM_DIR);
    qputenv("TOLVANE_MEDIA", "");
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Program program; // as the program's start has it
    const int rounds = argc > 1 ? std::max(1, atoi(argv[1])) : 21;
    platform::SetMessageBoxBackend([](const platform::MessageBoxCall& call) {
        std::fprintf(stderr, "box: %s\n", qPrintable(call.text));
        return platform::DefaultAnswer(call.flags);
    });

    // A provisioned tree with a 300-entry vault behind a password.
    SaveProgramSetting(QStringLiteral("curLang"), QStringLiteral("English"));
    SaveProgramSetting(QStringLiteral("SP1"), QStringLiteral("1"));
    const QString data = dir.path() + QStringLiteral("/appdata/Brenmark/Tolvane/data/");
    QDir().mkpath(data + QStringLiteral("Administrator"));
    QFile::copy(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR "/users.txt"), data + QStringLiteral("users.txt"));
    QFile::copy(
        QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR "/dummy.dat"), data + QStringLiteral("Administrator/dummy.dat"));
    const QString config = platform::ToWindows(data + QStringLiteral("config.txt"));
    WriteIni(Keys::user, Keys::current, QStringLiteral("Administrator"), config);
    WriteIni(Keys::user, Keys::defaultProfile, QStringLiteral("Administrator"), config);
    WriteIni(Keys::settings, Keys::password, MD5Hex(QStringLiteral("bench")),
        platform::ToWindows(data + QStringLiteral("Administrator/settings.txt")));
    QList<Entry> entries;
    for (int i = 0; i < 300; ++i) {
        Entry e;
        e.title = "Entry " + QByteArray::number(i);
        e.userName = "user" + QByteArray::number(i);
        e.password = "pw" + QByteArray::number(i * 7919);
        e.url = "https://e.org/" + QByteArray::number(i);
        entries.append(e);
    }
    if (SaveVault(platform::ToWindows(data + QStringLiteral("Administrator/list.dat")), entries) != VaultSave::Saved)
        return 1;
    const qint64 vaultBytes = QFileInfo(data + QStringLiteral("Administrator/list.dat")).size();

    SplashWindow* splash = program.start();
    for (int tick = 0; tick < 3; ++tick)
        splash->tick();
    LoginDialog* login = shownLogin();
    if (!login || !QTest::qWaitForWindowExposed(login))
        return 2;
    const double toLoginFromMain = sinceMain.nsecsElapsed() / 1e6;
    const double toLoginFromStart = msSinceProcessStart();

    QList<double> enterToVault;
    long rss = 0;
    for (int r = 0; r < rounds; ++r) {
        if (!login) {
            program.showLogin();
            login = shownLogin();
            if (!login || !QTest::qWaitForWindowExposed(login))
                return 3;
        }
        auto* password = ui::get<QLineEdit>(login, Lang(Text::LoginPasswordLabel));
        if (!password)
            return 6;
        password->setText(QStringLiteral("bench"));
        QElapsedTimer t;
        t.start();
        QTest::keyClick(password, Qt::Key_Return);
        VaultWindow* main = VaultWindow::Loaded();
        if (!main || !QTest::qWaitForWindowExposed(main))
            return 4;
        enterToVault << t.nsecsElapsed() / 1e6;
        if (ui::rows(main, Lang(Text::PasswordList)).size() != 300)
            return 5;
        QTest::qWait(20);
        rss = std::max(rss, residentKb());
        VaultWindow::Unload();
        TrayHost::Unload();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        login = nullptr;
    }
    std::sort(enterToVault.begin(), enterToVault.end());
    std::printf("platform %s, vault 300 entries, %lld bytes on disk, rounds %d\n",
        qPrintable(QGuiApplication::platformName()), static_cast<long long>(vaultBytes), rounds);
    std::printf("process start -> login shown: %.0f ms (kernel clock, 10 ms steps); main -> login shown: %.1f ms\n",
        toLoginFromStart, toLoginFromMain);
    std::printf("Enter -> vault window shown: median %.1f ms, max %.1f ms\n", enterToVault.at(enterToVault.size() / 2),
        enterToVault.last());
    std::printf("resident memory with the vault open: %.1f MB\n", rss / 1024.0);
    return 0;
}
