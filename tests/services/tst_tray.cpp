// The host window and its notification-area icon: the tip, the three mouse messages of the
// icon, the default options of a profile, and the way back to a closed vault window. These runs
// have no notification area (offscreen), which is also what a desktop without one gives.
#include "VaultRun.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>

class tst_tray : public QObject
{
    Q_OBJECT

    // The icon's message as the notification area delivers it: a mouse move, X the message.
    static void iconMessage(TrayHost* host, int message)
    {
        QMouseEvent move(
            QEvent::MouseMove, QPointF(message, 0), QPointF(message, 0), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(host, &move);
    }

private Q_SLOTS:
    void tipIsAFieldOfSixtyFourCharacters()
    {
        const QString tip = TrayHost::TipText(QStringLiteral("Administrator"));
        QCOMPARE(tip.size(), 64);
        QVERIFY(tip.startsWith(QStringLiteral("Tolvane \r\nAdministrator") + QChar(0) + QLatin1Char(' ')));
        QVERIFY(tip.endsWith(QLatin1Char(' ')));
        const QString longName(60, QLatin1Char('x'));
        const QString cut = TrayHost::TipText(longName);
        QCOMPARE(cut, (QStringLiteral("Tolvane \r\n") + longName).left(64));
        QVERIFY(!cut.contains(QChar(0)));
    }

    void iconMessagesOpenTheMenuOrShowTheHostOutOfSight()
    {
        VaultRun run;
        VaultWindow* main = run.start();
        QVERIFY(main);
        TrayHost* host = TrayHost::Loaded();
        QVERIFY(host);
        QCOMPARE(host->tip, TrayHost::TipText(QStringLiteral("Administrator")));

        // No notification area here: the menu of the icon stands in the window's bar.
        QVERIFY(!host->IconShown());
        QVERIFY(main->menuBar()->actions().contains(main->trayMenu->menuAction()));
        const QStringList entries = [&] {
            QStringList names;
            for (QAction* a : main->trayMenu->actions())
                names << (a->isSeparator() ? QStringLiteral("-") : a->objectName());
            return names;
        }();
        QCOMPARE(entries,
            QStringList({ "showWindowAction", "-", "trayUpdateAction", "-", "trayHomePageAction", "forumAction", "-",
                "trayAboutAction", "trayCloseAction" }));

        for (int message : { 514, 517 }) {
            iconMessage(host, message);
            QTRY_VERIFY(main->trayMenu->isVisible());
            main->trayMenu->hide();
        }
        iconMessage(host, 512);
        iconMessage(host, 516);
        QVERIFY(!main->trayMenu->isVisible());
        QVERIFY(!host->isVisible());
        iconMessage(host, 515); // shown, yet where nobody sees it
        QVERIFY(host->isVisible());
        const QRect seen = host->frameGeometry();
        QVERIFY(seen.right() < 0 && seen.bottom() < 0);
    }

    void closingTheVaultWindowLeavesTheMenuAsTheWayBack()
    {
        VaultRun run;
        Entry e;
        e.title = "Mail";
        VaultWindow* main = run.startActive({ e });
        QVERIFY(main);
        main->close(); // saved and gone; the host stays
        QVERIFY(!VaultWindow::Loaded());
        QVERIFY(TrayHost::Loaded());
        QCOMPARE(run.vaultOnDisk().size(), 1);

        // Reaching the menu loads the window again; its first entry shows it.
        iconMessage(TrayHost::Loaded(), 517);
        VaultWindow* again = VaultWindow::Loaded();
        QVERIFY(again && again != main);
        QVERIFY(!again->isVisible());
        again->showWindowAction->trigger();
        QVERIFY(again->isVisible());
        QCOMPARE(VaultRun::rows(again->list), QStringList { QStringLiteral("Mail") });
        again->trayMenu->hide();
    }

    void defaultOptionsOnlyForAProfileWithoutThem()
    {
        {
            VaultRun run;
            QVERIFY(run.start()); // the first start provisions the data tree
            run.close();
            run.world.write(
                QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/cfg.txt"), "[setts]\r\ns2=0\r\n");
            QVERIFY(run.start());
            QCOMPARE(run.ini(QStringLiteral("Administrator/cfg.txt"), QStringLiteral("setts"), QStringLiteral("s2")),
                QStringLiteral("0"));
            QCOMPARE(run.ini(QStringLiteral("Administrator/cfg.txt"), QStringLiteral("setts"), QStringLiteral("s3")),
                QString());
        }
        {
            VaultRun run;
            QVERIFY(run.start());
            for (int n = 1; n <= 5; ++n)
                QCOMPARE(run.ini(QStringLiteral("Administrator/cfg.txt"), QStringLiteral("setts"), Keys::option(n)),
                    QStringLiteral("1"));
        }
    }
};

QTEST_MAIN(tst_tray)
#include "tst_tray.moc"
