// SPDX-License-Identifier: GPL-3.0-or-later
// The host window and its notification-area icon, on a desktop without a notification area.
#include "ProgramRun.h"
#include "platform/Twips.h"

#include <QMenu>

namespace {

// The icon's message as the notification area hands it over: a mouse move whose X is the
// message, in pixels, that the host reads in its own scale.
const auto iconMessage = [](int message) { TrayHost::Loaded()->iconMessage(PixelsToTwips(message)); };

// The pop-up menu on screen, as the texts of its entries ("-" a separator); empty if none is up.
QStringList menuOnScreen()
{
    QStringList entries;
    for (QWidget* w : ui::windowsOnScreen()) {
        if (auto* menu = qobject_cast<QMenu*>(w)) {
            for (QAction* a : menu->actions())
                entries << (a->isSeparator() ? u"-"_s : a->text());
        }
    }
    return entries;
}

} // namespace

class tst_tray_host : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void iconMessagesOpenTheMenuOrShowTheHostOutOfSight()
    {
        ProgramRun run;
        VaultWindow* vault = run.start();
        QVERIFY(vault);
        TrayHost* host = TrayHost::Loaded();
        QVERIFY(host && !host->IconShown());
        const QStringList entries = { Lang(Text::OpenProgramItem), "-", Lang(Text::CheckForUpdatesItem), "-",
            Lang(Text::HomePageItem), Lang(Text::ForumItem), "-", Lang(Text::AboutItem), Lang(Text::CloseItem) };
        // No notification area here: the icon's menu stands in the window's bar, as "Tolvane".
        ShellScript shell;
        QVERIFY(ui::menu(vault, { u"Tolvane"_s, Lang(Text::ForumItem) }));
        QCOMPARE(shell.calls.size(), 1); // the forum's page
        for (int message : { 514, 517 }) { // left up, right up
            iconMessage(message);
            QTRY_COMPARE(menuOnScreen(), entries);
            QApplication::activePopupWidget()->close();
        }
        // Settings > OK loads the window anew: the menu is still in its bar, and Alt+O opens it.
        ui::menu(vault, { Lang(Text::ToolsMenu), Lang(Text::SettingsItem) });
        ui::click(ui::window(u"Ustawienia..."_s), u"OK"_s);
        VaultWindow* reloaded = VaultWindow::Loaded();
        QVERIFY(reloaded && reloaded != vault);
        ui::activate(reloaded);
        QTest::keyClick(reloaded, Qt::Key_O, Qt::AltModifier);
        QTRY_COMPARE(menuOnScreen(), entries);
        QApplication::activePopupWidget()->close();
        iconMessage(515); // shown, yet where nobody sees it
        QVERIFY(host->isVisible());
        QVERIFY(host->frameGeometry().right() < 0 && host->frameGeometry().bottom() < 0);
    }

    void closingTheVaultWindowLeavesTheMenuAsTheWayBack()
    {
        ProgramRun run;
        VaultWindow* vault = run.startActive({ Entry { "Mail", {}, {}, {}, {}, {}, {}, {} } });
        QVERIFY(vault);
        vault->close(); // saved and gone; the host stays
        QVERIFY(ui::windowsOnScreen().isEmpty() && TrayHost::Loaded());
        QCOMPARE(run.vaultOnDisk().size(), 1);

        // Reaching the menu loads the window again, out of sight; its first entry shows it.
        iconMessage(517);
        VaultWindow* again = VaultWindow::Loaded();
        QVERIFY(again && !again->isVisible());
        QTRY_VERIFY(qobject_cast<QMenu*>(QApplication::activePopupWidget()));
        auto* popup = static_cast<QMenu*>(QApplication::activePopupWidget());
        QCOMPARE(popup->actions().first()->text(), Lang(Text::OpenProgramItem));
        QTest::mouseClick(popup, Qt::LeftButton, {}, popup->actionGeometry(popup->actions().first()).center());
        QVERIFY(again->isVisible());
        QCOMPARE(ui::rows(again, Lang(Text::PasswordList)), QStringList { u"Mail"_s });
    }
};

QTEST_MAIN(tst_tray_host)
#include "tst_tray_host.moc"
