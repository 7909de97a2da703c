// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestWorld.h"
#include "core/RegistryLayer.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace platform;

class tst_registry_layer : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void valuesKeysAndHives()
    {
        TestWorld world;
        const auto get = [](const QString& name, const QString& key = u"Tolvane\\Settings"_s) {
            return RegGetValue(key, {}, name, u"d"_s, HKEY_CURRENT_USER, u"SOFTWARE\\Brenmark"_s).toString();
        };
        SaveProgramSetting(u"curLang"_s, u"Polish"_s);
        SaveProgramSetting(u"blank"_s, u"   "_s);
        RegSetValue(u"Tolvane"_s, u"Settings"_s, u"n"_s, -5, HKEY_CURRENT_USER, u"SOFTWARE\\Brenmark"_s, REG_DWORD);
        HKEY key = 0;
        QCOMPARE(RegCreateKeyExA(HKEY_CURRENT_USER, u"SOFTWARE\\Brenmark\\Bin"_s, 63, key), ERROR_SUCCESS);
        RegSetValueExA(key, u"b"_s, REG_BINARY, QByteArray("\x01\xab", 2));
        RegCloseKey(key);
        // Names compare without regard to case, as in the registry; a blank text reads as absent.
        QCOMPARE((QStringList { GetProgramSetting(u"curLang"_s), get(u"CURLANG"_s, u"TOLVANE\\settings"_s),
                     get(u"none"_s), get(u"blank"_s), get(u"n"_s), get(u"b"_s, u"Bin"_s),
                     RegNameFromHive(RegHiveFromName(u"hkey_local_machine"_s)),
                     RegNameFromHive(RegHiveFromName(u"HKLM"_s)) }),
            (QStringList {
                u"Polish"_s, u"Polish"_s, u"d"_s, u"d"_s, u"-5"_s, u"01 AB"_s, u"HKEY_LOCAL_MACHINE"_s, QString() }));

        RegSetValue(u"B\\C"_s, {}, u"v"_s, u"x"_s, HKEY_CURRENT_USER, u"A"_s);
        QCOMPARE(RegDeleteKeyA(HKEY_CURRENT_USER, u"A"_s), ERROR_ACCESS_DENIED); // with children: only the layer
        QVERIFY(RegDeleteEntry({}, {}, {}, HKEY_CURRENT_USER, u"A"_s));
        QCOMPARE(RegOpenKeyExA(HKEY_CURRENT_USER, u"A"_s, 0, 0, key), ERROR_FILE_NOT_FOUND);

        // A machine hive that refuses an ordinary user: the write says it was done, nothing is there.
        qputenv("TOLVANE_REGISTRY_MACHINE", "/dev/null/registry");
        QVERIFY(RegSetValue({}, {}, u"v"_s, u"Deutsch"_s, HKEY_LOCAL_MACHINE, u"SOFTWARE"_s));
        QCOMPARE(RegGetValue({}, {}, u"v"_s, u"none"_s, HKEY_LOCAL_MACHINE, u"SOFTWARE"_s).toString(), u"none"_s);
    }

    // The store is written by a rename from beside it, never through what stands in its place,
    // and never when it could not be read: what it holds is kept.
    void theStoreIsNeverWrittenThroughOrOverWhatItCantRead()
    {
        TestWorld world;
        const QString store = world.path(u"registry/HKEY_CURRENT_USER.reg"_s);
        const mode_t oldMask = ::umask(0);
        SaveProgramSetting(u"curLang"_s, u"Polish"_s);
        ::umask(oldMask);
        QCOMPARE(
            QFile::permissions(store) & ~(QFile::ReadUser | QFile::WriteUser), QFile::ReadOwner | QFile::WriteOwner);

        // Lines it can't understand stay as they are.
        world.write(
            u"registry/HKEY_CURRENT_USER.reg"_s, world.read(u"registry/HKEY_CURRENT_USER.reg"_s) + "# a note\n");
        SaveProgramSetting(u"SP1"_s, u"1"_s);
        QVERIFY(world.read(u"registry/HKEY_CURRENT_USER.reg"_s).endsWith("# a note\n"));
        QCOMPARE(GetProgramSetting(u"SP1"_s) + GetProgramSetting(u"curLang"_s), u"1Polish"_s);

        // Too large to be the store: not read, not replaced.
        const QByteArray large
            = world.read(u"registry/HKEY_CURRENT_USER.reg"_s) + "K\t" + QByteArray(1 << 20, 'k') + '\n';
        world.write(u"registry/HKEY_CURRENT_USER.reg"_s, large);
        SaveProgramSetting(u"SP1"_s, u"2"_s);
        QCOMPARE(GetProgramSetting(u"curLang"_s), QString());
        QVERIFY(world.read(u"registry/HKEY_CURRENT_USER.reg"_s) == large);

        // A link in its place is refused, and what it names stays as it was.
        world.write(u"elsewhere"_s, "mine\n");
        QFile::remove(store);
        QVERIFY(QFile::link(world.path(u"elsewhere"_s), store));
        SaveProgramSetting(u"curLang"_s, u"English"_s);
        QCOMPARE(world.read(u"elsewhere"_s), QByteArray("mine\n"));
        QVERIFY(QFileInfo(store).isSymLink());

        // A pipe in its place: refused at once, not waited on.
        QFile::remove(store);
        QCOMPARE(::mkfifo(QFile::encodeName(store).constData(), 0600), 0);
        SaveProgramSetting(u"curLang"_s, u"English"_s);
        QCOMPARE(GetProgramSetting(u"curLang"_s), QString());
        QVERIFY(!QFileInfo(store).isFile());
    }
};

QTEST_GUILESS_MAIN(tst_registry_layer)
#include "tst_registry_layer.moc"
