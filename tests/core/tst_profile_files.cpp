// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestWorld.h"
#include "core/ProfileFiles.h"

using namespace Qt::StringLiterals;

class tst_profile_files : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void readsAndWritesAsThePlatformDoes()
    {
        TestWorld world;
        world.write(u"home/f.txt"_s,
            "junk before\r\n[Other]\r\ncurrent=no\r\n[ USER ]\r\n  Current  =  Anna Smith  \r\nq=\"quoted\"\r\n"
            "eq=a=b\r\nname=]x[\r\n");
        for (const auto& [key, value] : { std::pair { "current", "Anna Smith" }, { "q", "quoted" }, { "eq", "a=b" },
                 { "name", "]x[" }, { "missing", "" } })
            QCOMPARE(GetIni(u"user"_s, QLatin1String(key), u"C:\\f.txt"_s), QLatin1String(value));
        QCOMPARE(GetIni(u"user"_s, u"x"_s, u"C:\\new.txt"_s), QString()); // a read makes no file
        QVERIFY(!QFile::exists(world.path(u"home/new.txt"_s)));
        WriteIni(u"user"_s, u"current"_s, u"A"_s, u"C:\\new.txt"_s);
        QCOMPARE(world.read(u"home/new.txt"_s), QByteArray("[user]\r\ncurrent=A\r\n"));
        WriteIni(u"s"_s, u"k"_s, u"v"_s, u"C:\\no\\such\\f.txt"_s); // lost below a missing folder
        QVERIFY(!QFileInfo::exists(world.path(u"home/no"_s)));

        // A write keeps every other line, and an empty value its key; a value is read cut to 254.
        world.write(u"home/k.txt"_s, "; kept\n[user]\r\ncurrent=Anna\r\n\r\n[setts]\r\ns1=1\r\nno end");
        WriteIni(u"USER"_s, u"Current"_s, u"Bob"_s, u"C:\\k.txt"_s);
        WriteIni(u"setts"_s, u"s1"_s, QString(), u"C:\\k.txt"_s);
        WriteIni(u"new"_s, u"k"_s, u"J\u00f6rg"_s, u"C:\\k.txt"_s);
        WriteIni(u"new"_s, u"long"_s, QString(255, QLatin1Char('y')), u"C:\\k.txt"_s);
        QCOMPARE(world.read(u"home/k.txt"_s),
            QByteArray("; kept\n[user]\r\nCurrent=Bob\r\n\r\n[setts]\r\ns1=\r\nno end\r\n[new]\r\nk=J\xf6rg\r\nlong=")
                + QByteArray(255, 'y') + "\r\n");
        QCOMPARE(GetIni(u"new"_s, u"k"_s, u"C:\\k.txt"_s), u"J\u00f6rg"_s);
        QCOMPARE(GetIni(u"new"_s, u"long"_s, u"C:\\k.txt"_s), QString(254, QLatin1Char('y')));
        const QByteArray junk = QByteArray(5, '\0') + '\x01' + QByteArray(294, '\0'); // no line ends
        world.write(u"home/j.txt"_s, junk);
        QCOMPARE(GetIni(u"user"_s, u"current"_s, u"C:\\j.txt"_s), QString()); // a read finds nothing
        WriteIni(u"user"_s, u"current"_s, u"A"_s, u"C:\\j.txt"_s); // a write appends a section
        QVERIFY(world.read(u"home/j.txt"_s).startsWith(junk));
        QCOMPARE(GetIni(u"user"_s, u"current"_s, u"C:\\j.txt"_s), u"A"_s);
    }
};

QTEST_GUILESS_MAIN(tst_profile_files)
#include "tst_profile_files.moc"
