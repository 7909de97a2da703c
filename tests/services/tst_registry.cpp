#include "TestSupport.h"
#include "services/RegistryLayer.h"

#include <QFileInfo>

using namespace platform;

class tst_registry : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void pathBuilding_data()
    {
        QTest::addColumn<QString>("root");
        QTest::addColumn<QString>("application");
        QTest::addColumn<QString>("section");
        QTest::addColumn<QString>("expected");
        QTest::newRow("all parts") << "SOFTWARE\\Brenmark"
                                   << "Tolvane"
                                   << "Settings"
                                   << "SOFTWARE\\Brenmark\\Tolvane\\Settings";
        QTest::newRow("empty root") << ""
                                    << "Tolvane"
                                    << "Settings"
                                    << "Tolvane\\Settings";
        QTest::newRow("empty application") << "SOFTWARE"
                                           << ""
                                           << "Settings"
                                           << "SOFTWARE\\Settings";
        QTest::newRow("empty section") << "SOFTWARE"
                                       << "Tolvane"
                                       << ""
                                       << "SOFTWARE\\Tolvane";
        QTest::newRow("doubled and forward") << "SOFTWARE\\\\Brenmark\\"
                                             << "Tol/vane"
                                             << ""
                                             << "SOFTWARE\\Brenmark\\Tol\\vane";
        QTest::newRow("nothing") << ""
                                 << ""
                                 << ""
                                 << "";
    }
    void pathBuilding()
    {
        QFETCH(QString, root);
        QFETCH(QString, application);
        QFETCH(QString, section);
        QFETCH(QString, expected);
        QCOMPARE(RegBuildPath(root, application, section), expected);
    }

    void valuesOfEachType()
    {
        TestWorld world;
        const QString root = QStringLiteral("SOFTWARE\\Brenmark");
        QCOMPARE(RegGetValue(QStringLiteral("Tolvane"), QStringLiteral("Settings"), QStringLiteral("curLang"),
                     QStringLiteral("dflt"), HKEY_CURRENT_USER, root)
                     .toString(),
            QStringLiteral("dflt"));
        RegSetValue(QStringLiteral("Tolvane"), QStringLiteral("Settings"), QStringLiteral("curLang"),
            QStringLiteral("Polish"), HKEY_CURRENT_USER, root);
        // Key and value names compare without regard to case, as in the registry.
        QCOMPARE(RegGetValue(QStringLiteral("TOLVANE"), QStringLiteral("settings"), QStringLiteral("CURLANG"),
                     QString(), HKEY_CURRENT_USER, root)
                     .toString(),
            QStringLiteral("Polish"));
        RegSetValue(QString(), QStringLiteral("Settings"), QStringLiteral("blank"), QStringLiteral("   "),
            HKEY_CURRENT_USER, root);
        QCOMPARE(RegGetValue(QString(), QStringLiteral("Settings"), QStringLiteral("blank"), QStringLiteral("d"),
                     HKEY_CURRENT_USER, root)
                     .toString(),
            QStringLiteral("d"));
        RegSetValue(QString(), QStringLiteral("Settings"), QStringLiteral("n"), -5, HKEY_CURRENT_USER, root, REG_DWORD);
        QCOMPARE(
            RegGetValue(QString(), QStringLiteral("Settings"), QStringLiteral("n"), 0, HKEY_CURRENT_USER, root).toInt(),
            -5);
        HKEY key = 0;
        QCOMPARE(RegCreateKeyExA(HKEY_CURRENT_USER, QStringLiteral("SOFTWARE\\Bin"), 63, key), ERROR_SUCCESS);
        RegSetValueExA(key, QStringLiteral("b"), REG_BINARY, QByteArray("\x01\xab", 2));
        RegCloseKey(key);
        QCOMPARE(RegGetValue(QString(), QString(), QStringLiteral("b"), QString(), HKEY_CURRENT_USER,
                     QStringLiteral("SOFTWARE\\Bin"))
                     .toString(),
            QStringLiteral("01 AB"));
        QCOMPARE(GetProgramSetting(QStringLiteral("curLang")), QStringLiteral("Polish"));
    }

    void machineHiveRefusesAnOrdinaryUser()
    {
        TestWorld world;
        // A store that can't be made stands for a hive that refuses this user.
        world.write(QStringLiteral("blocked"), "a file, not a folder");
        qputenv("TOLVANE_REGISTRY_MACHINE", world.path(QStringLiteral("blocked/registry")).toLocal8Bit());
        HKEY key = 0;
        QCOMPARE(
            RegCreateKeyExA(HKEY_LOCAL_MACHINE, QStringLiteral("SOFTWARE\\Tolvane"), 63, key), ERROR_ACCESS_DENIED);
        QVERIFY(RegSetValue(QStringLiteral("Tolvane"), QStringLiteral("Settings"), QStringLiteral("curLang"),
            QStringLiteral("Deutsch"), HKEY_LOCAL_MACHINE, QStringLiteral("SOFTWARE")));
        QCOMPARE(RegGetValue(QStringLiteral("Tolvane"), QStringLiteral("Settings"), QStringLiteral("curLang"),
                     QString(), HKEY_LOCAL_MACHINE, QStringLiteral("SOFTWARE"))
                     .toString(),
            QString());
    }

    void deleteKeyWithChildren()
    {
        TestWorld world;
        HKEY key = 0;
        QCOMPARE(RegCreateKeyExA(HKEY_CURRENT_USER, QStringLiteral("A\\B\\C"), 63, key), ERROR_SUCCESS);
        RegCloseKey(key);
        QCOMPARE(RegDeleteKeyA(HKEY_CURRENT_USER, QStringLiteral("A")), ERROR_ACCESS_DENIED);
        QVERIFY(RegDeleteEntry(QString(), QString(), QString(), HKEY_CURRENT_USER, QStringLiteral("A")));
        QCOMPARE(RegOpenKeyExA(HKEY_CURRENT_USER, QStringLiteral("A"), 0, 0, key), ERROR_FILE_NOT_FOUND);
        QCOMPARE(RegHiveFromName(QStringLiteral("hkey_local_machine")), HKEY_LOCAL_MACHINE);
        QCOMPARE(RegHiveFromName(QStringLiteral("HKLM")), HKEY(0));
    }
};

QTEST_GUILESS_MAIN(tst_registry)
#include "tst_registry.moc"
