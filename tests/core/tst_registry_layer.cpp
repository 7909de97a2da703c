// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestWorld.h"
#include "core/RegistryLayer.h"
#include "platform/Registry.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace platform;

static const QString userStore = u"registry/HKEY_CURRENT_USER.reg"_s;

class tst_registry_layer : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void valuesAndHives()
    {
        TestWorld world;
        SaveProgramSetting(u"curLang"_s, u"Polish"_s);
        SaveProgramSetting(u"blank"_s, u"   "_s);
        SetRegistryValue(RegistryHive::User, u"SOFTWARE\\Brenmark\\Tolvane\\Settings"_s, u"n"_s, -5);
        world.write(userStore, world.read(userStore) + "V\tSOFTWARE\\Bin\tb\t3\t01ab\n");
        // Names compare without regard to case, as in the registry; a blank text reads as absent.
        QCOMPARE((QStringList { GetProgramSetting(u"curLang"_s),
                     RegistryValue(RegistryHive::User, u"software//BRENMARK\\tolvane\\settings\\"_s, u"CURLANG"_s)
                         .toString(),
                     GetProgramSetting(u"none"_s), GetProgramSetting(u"blank"_s), GetProgramSetting(u"n"_s),
                     RegistryValue(RegistryHive::User, u"SOFTWARE\\Bin"_s, u"b"_s).toString() }),
            (QStringList { u"Polish"_s, u"Polish"_s, QString(), QString(), u"-5"_s, u"01 AB"_s }));
        QVERIFY(!RegistryValue(RegistryHive::User, u"SOFTWARE\\None"_s, u"b"_s).isValid());

        // A machine hive that refuses an ordinary user: nothing is there after the write.
        qputenv("TOLVANE_REGISTRY_MACHINE", "/dev/null/registry");
        SetRegistryValue(RegistryHive::Machine, u"SOFTWARE"_s, u"v"_s, u"Deutsch"_s);
        QVERIFY(!RegistryValue(RegistryHive::Machine, u"SOFTWARE"_s, u"v"_s).isValid());
    }

    // The store is written by a rename from beside it, never through what stands in its place,
    // and never when it could not be read: what it holds is kept.
    void theStoreIsNeverWrittenThroughOrOverWhatItCantRead()
    {
        TestWorld world;
        const QString store = world.path(userStore);
        const mode_t oldMask = ::umask(0);
        SaveProgramSetting(u"curLang"_s, u"Polish"_s);
        ::umask(oldMask);
        QCOMPARE(
            QFile::permissions(store) & ~(QFile::ReadUser | QFile::WriteUser), QFile::ReadOwner | QFile::WriteOwner);

        // Lines it can't understand stay as they are.
        world.write(userStore, world.read(userStore) + "# a note\n");
        SaveProgramSetting(u"SP1"_s, u"1"_s);
        QVERIFY(world.read(userStore).endsWith("# a note\n"));
        QCOMPARE(GetProgramSetting(u"SP1"_s) + GetProgramSetting(u"curLang"_s), u"1Polish"_s);

        // Too large to be the store: not read, not replaced.
        const QByteArray large = world.read(userStore) + "K\t" + QByteArray(1 << 20, 'k') + '\n';
        world.write(userStore, large);
        SaveProgramSetting(u"SP1"_s, u"2"_s);
        QCOMPARE(GetProgramSetting(u"curLang"_s), QString());
        QVERIFY(world.read(userStore) == large);

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
