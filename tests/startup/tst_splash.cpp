#include "TestSupport.h"
#include "platform/Paths.h"
#include "services/LanguageTable.h"
#include "startup/SplashWindow.h"
#include "storage/DataRoot.h"

#include <QApplication>
#include <QLabel>

class tst_splash : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void threeTicksThenTheLogin()
    {
        TestWorld world;
        MessageBoxScript boxes;
        SplashWindow splash;
        splash.initialize();
        splash.load();
        QCOMPARE(splash.tickTimer->interval(), 1000);
        QVERIFY(splash.tickTimer->isActive());
        QCOMPARE(splash.rightsNotice->text(), Lang(100));
        QVERIFY(splash.rightsNotice->text().contains(QStringLiteral("Brenmark")));
        auto logins = [] {
            int n = 0;
            for (QWidget* w : QApplication::topLevelWidgets())
                n += w->objectName() == QLatin1String("LoginDialog") ? 1 : 0;
            return n;
        };
        splash.tick();
        splash.tick();
        QCOMPARE(logins(), 0);
        splash.tick();
        QCOMPARE(logins(), 1);
        QVERIFY(!splash.tickTimer->isActive());
        splash.tick(); // a late tick shows nothing more
        QCOMPARE(logins(), 1);
    }

    void portableModeFromAnEmptyFileOnly()
    {
        TestWorld world;
        MessageBoxScript boxes;
        {
            SplashWindow splash;
            splash.load();
            QCOMPARE(UsbMode, qint16(0));
        }
        QDir().mkpath(world.path(QStringLiteral("program/usb.inf")));
        {
            SplashWindow splash;
            splash.load();
            QCOMPARE(UsbMode, qint16(0)); // a folder of that name is no mark
        }
        QDir().rmdir(world.path(QStringLiteral("program/usb.inf")));
        world.write(QStringLiteral("program/usb.inf"), "");
        {
            SplashWindow splash;
            splash.load();
            QCOMPARE(UsbMode, qint16(1));
            QCOMPARE(DataRoot(), platform::AppPath());
        }
        UsbMode = 0;
    }
};

QTEST_MAIN(tst_splash)
#include "tst_splash.moc"
