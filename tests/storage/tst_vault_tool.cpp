// The command-line tool, run as a process over files the storage code wrote.
#include "TestSupport.h"
#include "storage/VaultFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <sys/stat.h>
#include <unistd.h>

namespace {
struct Run
{
    int code = -1;
    QByteArray out;
    QByteArray err;
};

Run tool(const QStringList& args, const QByteArray& input = QByteArray())
{
    QProcess p;
    p.start(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR "/tolvane-vault"), args);
    p.waitForStarted();
    p.write(input);
    p.closeWriteChannel();
    if (!p.waitForFinished(10000)) { // a tool that hangs is a failure of its own
        p.kill();
        p.waitForFinished();
        return { -1, {}, "hung" };
    }
    return { p.exitCode(), p.readAllStandardOutput(), p.readAllStandardError() };
}
} // namespace

class tst_vault_tool : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void saveThenDumpIsWhatTheProgramWrites()
    {
        TestWorld world;
        const QString file = world.path(QStringLiteral("tool.dat"));
        QJsonObject e;
        e.insert(QStringLiteral("title"), QStringLiteral("Mail"));
        e.insert(QStringLiteral("name"), QStringLiteral("anna"));
        e.insert(QStringLiteral("picture"), QStringLiteral("\u00ff\u0000x"));
        const QByteArray json = QJsonDocument(QJsonArray { e }).toJson();
        QCOMPARE(tool({ QStringLiteral("save"), file }, json).code, 0);
        // The same bytes as the program's own save.
        QList<Entry> same { Entry { "Mail", {}, {}, "anna", {}, {}, {}, QByteArray("\xff\0x", 3) } };
        QCOMPARE(world.read(QStringLiteral("tool.dat")), LayerOn(ComposeInnerText(same)));
        const Run dump = tool({ QStringLiteral("dump"), file });
        QCOMPARE(dump.code, 0);
        const QJsonObject back = QJsonDocument::fromJson(dump.out).array().first().toObject();
        QCOMPARE(back.value(QStringLiteral("name")).toString(), QStringLiteral("anna\u0000\u0000"));
        QCOMPARE(back.value(QStringLiteral("picture")).toString(), QStringLiteral("\u00ff\u0000x"));
        // dump reads without touching the file.
        QCOMPARE(world.read(QStringLiteral("tool.dat")), LayerOn(ComposeInnerText(same)));
        QCOMPARE(tool({ QStringLiteral("unwrap"), file }).out, ComposeInnerText(same) + QByteArray(3, '\0'));
    }

    void rescueGivesBackWhatTheProgramLoses()
    {
        TestWorld world;
        QList<Entry> entries { Entry {
            "Note", {}, {}, {}, {}, {}, "first line\r\nand a long second line=" + QByteArray(80, 'z'), {} } };
        const QByteArray original = entries[0].note;
        SaveVault(QStringLiteral("C:\\..\\rescue.dat"), entries);
        const Run rescue = tool({ QStringLiteral("rescue"), world.path(QStringLiteral("rescue.dat")) });
        QCOMPARE(rescue.code, 0);
        const QJsonObject back = QJsonDocument::fromJson(rescue.out).array().first().toObject();
        QCOMPARE(back.value(QStringLiteral("extra")).toString().toLatin1(), original);
        const Run dump = tool({ QStringLiteral("dump"), world.path(QStringLiteral("rescue.dat")) });
        QCOMPARE(QJsonDocument::fromJson(dump.out)
                     .array()
                     .first()
                     .toObject()
                     .value(QStringLiteral("extra"))
                     .toString()
                     .size(),
            48);
    }

    void errorsAndUsage()
    {
        TestWorld world;
        QCOMPARE(tool({}).code, 2);
        QCOMPARE(tool({ QStringLiteral("frobnicate"), QStringLiteral("x") }).code, 2);
        QCOMPARE(tool({ QStringLiteral("--help") }).code, 0);
        const Run missing = tool({ QStringLiteral("dump"), world.path(QStringLiteral("none.dat")) });
        QCOMPARE(missing.code, 1);
        QVERIFY(missing.err.contains("no such file"));
        QCOMPARE(tool({ QStringLiteral("save"), world.path(QStringLiteral("x.dat")) }, "not json").code, 1);
        QVERIFY(!QFileInfo::exists(world.path(QStringLiteral("x.dat"))));
        QJsonObject big;
        big.insert(QStringLiteral("title"), QStringLiteral("Big"));
        big.insert(QStringLiteral("extra"), QString(30000, QLatin1Char('x')));
        const Run tooLarge = tool({ QStringLiteral("save"), world.path(QStringLiteral("x.dat")) },
            QJsonDocument(QJsonArray { big }).toJson());
        QCOMPARE(tooLarge.code, 1);
        QVERIFY(tooLarge.err.contains("nothing was written"));
        // Only regular files, and none larger than a vault: each refused at once, with the reason.
        QDir().mkpath(world.path(QStringLiteral("folder")));
        QCOMPARE(::mkfifo(QFile::encodeName(world.path(QStringLiteral("pipe"))).constData(), 0600), 0);
        QFile sparse(world.path(QStringLiteral("huge.dat")));
        QVERIFY(sparse.open(QIODevice::WriteOnly) && sparse.resize(2 * 1024 * 1024));
        sparse.close();
        const QList<std::pair<QStringList, QByteArray>> refusals = {
            { { QStringLiteral("dump"), QStringLiteral("/dev/zero") }, "is not a regular file" },
            { { QStringLiteral("dump"), world.path(QStringLiteral("pipe")) }, "is not a regular file" },
            { { QStringLiteral("save"), world.path(QStringLiteral("pipe")) }, "is not a regular file" },
            { { QStringLiteral("unwrap"), world.path(QStringLiteral("folder")) }, "is a folder" },
            { { QStringLiteral("save"), world.path(QStringLiteral("folder")) }, "is a folder" },
            { { QStringLiteral("rescue"), world.path(QStringLiteral("huge.dat")) }, "more than any vault file" },
            { { QStringLiteral("save"), world.path(QStringLiteral("none/x.dat")) }, "no such folder" },
        };
        for (const auto& [args, reason] : refusals) {
            const Run refused = tool(args, "[]");
            QCOMPARE(refused.code, 1);
            QVERIFY2(refused.err.contains(reason), refused.err.constData());
        }
        const Run endless
            = tool({ QStringLiteral("save"), world.path(QStringLiteral("x.dat")) }, QByteArray(5 << 20, ' '));
        QCOMPARE(endless.code, 1);
        QVERIFY(endless.err.contains("longer than"));
        if (::geteuid() != 0) { // root reads whatever the modes say
            world.write(QStringLiteral("locked.dat"), "x");
            QFile::setPermissions(world.path(QStringLiteral("locked.dat")), QFile::WriteOwner);
            QVERIFY(tool({ QStringLiteral("dump"), world.path(QStringLiteral("locked.dat")) })
                        .err.contains("no permission"));
        }
        // A bad Base64 group is reported and read on as OK.
        world.write(QStringLiteral("bad.dat"), LayerOn("[A]\r\nname=YW5u*W5u\r\n"));
        const Run bad = tool({ QStringLiteral("dump"), world.path(QStringLiteral("bad.dat")) });
        QCOMPARE(bad.code, 0);
        QVERIFY(bad.err.contains("Illegal Characters <*W5u>"));
        QVERIFY(bad.out.contains("ann???"));
    }
};

QTEST_GUILESS_MAIN(tst_vault_tool)
#include "tst_vault_tool.moc"
