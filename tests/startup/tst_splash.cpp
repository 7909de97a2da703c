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
        splash.Form_Initialize();
        splash.Form_Load();
        QCOMPARE(splash.tmrTime->interval(), 1000);
        QVERIFY(splash.tmrTime->isActive());
        QCOMPARE(splash.Label2->text(), Lang(100));
        QVERIFY(splash.Label2->text().contains(QStringLiteral("Brenmark")));
        auto logins = [] {
            int n = 0;
            for (QWidget* w : QApplication::topLevelWidgets())
                n += w->objectName() == QLatin1String("LoginDialog") ? 1 : 0;
            return n;
        };
        splash.tmrTime_Timer();
        splash.tmrTime_Timer();
        QCOMPARE(logins(), 0);
        splash.tmrTime_Timer();
        QCOMPARE(logins(), 1);
        QVERIFY(!splash.tmrTime->isActive());
        splash.tmrTime_Timer(); // a late tick shows nothing more
        QCOMPARE(logins(), 1);
    }

    void portableModeFromAnEmptyFileOnly()
    {
        TestWorld world;
        MessageBoxScript boxes;
        {
            SplashWindow splash;
            splash.Form_Load();
            QCOMPARE(UsbMode, qint16(0));
        }
        QDir().mkpath(world.path(QStringLiteral("program/usb.inf")));
        {
            SplashWindow splash;
            splash.Form_Load();
            QCOMPARE(UsbMode, qint16(0)); // a folder of that name is no mark
        }
        QDir().rmdir(world.path(QStringLiteral("program/usb.inf")));
        world.write(QStringLiteral("program/usb.inf"), "");
        {
            SplashWindow splash;
            splash.Form_Load();
            QCOMPARE(UsbMode, qint16(1));
            QCOMPARE(DataRoot(), platform::AppPath());
        }
        UsbMode = 0;
    }
};

QTEST_MAIN(tst_splash)
#include "tst_splash.moc"
