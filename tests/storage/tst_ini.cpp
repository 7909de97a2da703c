#include "TestSupport.h"
#include "storage/ProfileFiles.h"

class tst_ini : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ceilingOf254Characters()
    {
        TestWorld world;
        const QString file = QStringLiteral("C:\\cfg.txt");
        WriteIni(QStringLiteral("user"), QStringLiteral("a"), QString(254, QLatin1Char('x')), file);
        WriteIni(QStringLiteral("user"), QStringLiteral("b"), QString(255, QLatin1Char('y')), file);
        QCOMPARE(GetIni(QStringLiteral("user"), QStringLiteral("a"), file).size(), 254);
        QCOMPARE(GetIni(QStringLiteral("user"), QStringLiteral("b"), file), QString(254, QLatin1Char('y')));
        // What is stored stays whole on disk; only readers are cut.
        QVERIFY(world.read(QStringLiteral("home/cfg.txt")).contains(QByteArray(255, 'y')));
    }

    void emptyValueKeepsTheKeyAndReadsEmpty()
    {
        TestWorld world;
        const QString file = QStringLiteral("C:\\config.txt");
        WriteIni(QStringLiteral("user"), QStringLiteral("switch"), QStringLiteral("Bob"), file);
        WriteIni(QStringLiteral("user"), QStringLiteral("switch"), QString(), file);
        QCOMPARE(world.read(QStringLiteral("home/config.txt")), QByteArray("[user]\r\nswitch=\r\n"));
        QCOMPARE(GetIni(QStringLiteral("user"), QStringLiteral("switch"), file), QString());
    }

    void readingAsThePlatformDoes()
    {
        TestWorld world;
        world.write(QStringLiteral("home/f.txt"),
            "junk before\r\n[Other]\r\ncurrent=no\r\n[ USER ]\r\n  Current  =  Anna Smith  \r\nq=\"quoted\"\r\n"
            "eq=a=b\r\nname=]x[\r\n");
        const QString file = QStringLiteral("C:\\f.txt");
        QCOMPARE(GetIni(QStringLiteral("user"), QStringLiteral("current"), file), QStringLiteral("Anna Smith"));
        QCOMPARE(GetIni(QStringLiteral("user"), QStringLiteral("q"), file), QStringLiteral("quoted"));
        QCOMPARE(GetIni(QStringLiteral("user"), QStringLiteral("eq"), file), QStringLiteral("a=b"));
        QCOMPARE(GetIni(QStringLiteral("user"), QStringLiteral("name"), file), QStringLiteral("]x["));
        QCOMPARE(GetIni(QStringLiteral("user"), QStringLiteral("missing"), file), QString());
        QCOMPARE(GetIni(QStringLiteral("user"), QStringLiteral("x"), QStringLiteral("C:\\none.txt")), QString());
        QVERIFY(!QFile::exists(world.path(QStringLiteral("home/none.txt"))));
    }

    void writesKeepEveryOtherLine()
    {
        TestWorld world;
        const QByteArray original = "; kept comment\n[user]\r\ncurrent=Anna\r\n\r\n[setts]\r\ns1=1\r\nno line end";
        world.write(QStringLiteral("home/k.txt"), original);
        const QString file = QStringLiteral("C:\\k.txt");
        WriteIni(QStringLiteral("USER"), QStringLiteral("Current"), QStringLiteral("Bob"), file);
        WriteIni(QStringLiteral("user"), QStringLiteral("default"), QStringLiteral("Bob"), file);
        WriteIni(QStringLiteral("new"), QStringLiteral("k"), QStringLiteral("v"), file);
        QCOMPARE(world.read(QStringLiteral("home/k.txt")),
            QByteArray("; kept comment\n[user]\r\nCurrent=Bob\r\ndefault=Bob\r\n\r\n[setts]\r\ns1=1\r\nno line end\r\n"
                       "[new]\r\nk=v\r\n"));
        // Binary junk with no line ends: a read gives nothing, a write appends a section to it.
        QByteArray junk(300, '\0');
        junk[5] = '\x01';
        world.write(QStringLiteral("home/j.txt"), junk);
        QCOMPARE(GetIni(QStringLiteral("user"), QStringLiteral("current"), QStringLiteral("C:\\j.txt")), QString());
        WriteIni(QStringLiteral("user"), QStringLiteral("current"), QStringLiteral("A"), QStringLiteral("C:\\j.txt"));
        QVERIFY(world.read(QStringLiteral("home/j.txt")).startsWith(junk));
        QCOMPARE(GetIni(QStringLiteral("user"), QStringLiteral("current"), QStringLiteral("C:\\j.txt")),
            QStringLiteral("A"));
    }

    void writeBelowAMissingFolderIsLost()
    {
        TestWorld world;
        WriteIni(QStringLiteral("s"), QStringLiteral("k"), QStringLiteral("v"), QStringLiteral("C:\\no\\such\\f.txt"));
        QVERIFY(!QFileInfo::exists(world.path(QStringLiteral("home/no"))));
    }

    void textInTheCodePage()
    {
        TestWorld world;
        WriteIni(QStringLiteral("user"), QStringLiteral("current"), QStringLiteral("J\u00f6rg"),
            QStringLiteral("C:\\c.txt"));
        QCOMPARE(world.read(QStringLiteral("home/c.txt")), QByteArray("[user]\r\ncurrent=J\xf6rg\r\n"));
        QCOMPARE(GetIni(QStringLiteral("user"), QStringLiteral("current"), QStringLiteral("C:\\c.txt")),
            QStringLiteral("J\u00f6rg"));
    }
};

QTEST_GUILESS_MAIN(tst_ini)
#include "tst_ini.moc"
