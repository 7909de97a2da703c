// SPDX-License-Identifier: GPL-3.0-or-later
// The command-line tool, run as a process over files the storage code wrote.
#include "TestWorld.h"
#include "storage/VaultFile.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
struct Run
{
    int code = -1; // -1: it crashed, or hung and was killed
    QByteArray out, err;
    QString first(const QString& key) const { return QJsonDocument::fromJson(out).array().first()[key].toString(); }
};

Run tool(const QStringList& args, const QByteArray& input = QByteArray())
{
    QProcess p;
    p.start(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR "/tolvane-vault"), args);
    p.waitForStarted();
    p.write(input);
    p.closeWriteChannel();
    const bool ended = p.waitForFinished(10000) && p.exitStatus() == QProcess::NormalExit;
    return { ended ? p.exitCode() : -1, p.readAllStandardOutput(), p.readAllStandardError() };
}
} // namespace

class tst_vault_tool : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void commandsErrorsAndUsage()
    {
        TestWorld world;
        const QString file = world.path(u"tool.dat"_s);
        QCOMPARE(tool({ u"save"_s, file }, R"([{"title":"Mail","name":"anna","picture":"\u00ff\u0000x"}])").code, 0);
        const Run dump = tool({ u"dump"_s, file });
        QCOMPARE((QStringList { QString::number(dump.code), dump.first(u"name"_s), dump.first(u"picture"_s) }),
            (QStringList { u"0"_s, u"anna\u0000\u0000"_s, u"\u00ff\u0000x"_s }));
        QList<Entry> same { Entry { "Mail", {}, {}, "anna", {}, {}, {}, QByteArray("\xff\0x", 3) } };
        const QByteArray inner = ComposeInnerText(same);
        QCOMPARE(world.read(u"tool.dat"_s), LayerOn(inner)); // the program's own save, untouched by the dump
        QCOMPARE(tool({ u"unwrap"_s, file }).out, inner + QByteArray(3, '\0'));
        QList<Entry> lossy { Entry { "Note", {}, {}, {}, {}, {}, "a\r\nb=" + QByteArray(80, 'z'), {} } };
        SaveVault(u"C:\\..\\tool.dat"_s, lossy);
        const Run rescue = tool({ u"rescue"_s, file }); // what the program's reading loses
        QCOMPARE(QByteArray::number(rescue.code) + rescue.first(u"extra"_s).toLatin1(), "0" + lossy[0].note);
        QCOMPARE(tool({ u"dump"_s, file }).first(u"extra"_s).size(), 48);
        world.write(u"bad.dat"_s, LayerOn("[A]\r\nname=YW5u*W5u\r\n"));
        const Run bad = tool({ u"dump"_s, world.path(u"bad.dat"_s) }); // a bad group: told, read on as OK
        QVERIFY(bad.err.contains("Illegal Characters <*W5u>"));
        QCOMPARE(QString::number(bad.code) + bad.first(u"name"_s), u"0ann???"_s);

        QCOMPARE((QList<int> { tool({}).code, tool({ u"frobnicate"_s, u"x"_s }).code, tool({ u"--help"_s }).code }),
            (QList<int> { 2, 2, 0 }));
        // Only regular files, and none larger than a vault: each refused at once, with the reason.
        QCOMPARE(::mkfifo(QFile::encodeName(world.path(u"pipe"_s)).constData(), 0600), 0);
        world.write(u"huge.dat"_s, QByteArray(2 << 20, '\0'));
        world.write(u"locked.dat"_s, "x");
        QFile::setPermissions(world.path(u"locked.dat"_s), QFile::WriteOwner);
        const QByteArray tooLarge = "[{\"title\":\"Big\",\"extra\":\"" + QByteArray(30000, 'x') + "\"}]";
        const std::tuple<const char*, const char*, QByteArray, const char*> refusals[]
            = { { "dump", "none.dat", "", "no such file" }, { "save", "x.dat", tooLarge, "nothing was written" },
                  { "save", "x.dat", QByteArray(5 << 20, ' '), "longer than" },
                  { "save", "x.dat", "not json", "JSON array" }, { "dump", "/dev/zero", "[]", "regular file" },
                  { "dump", "pipe", "[]", "regular file" }, { "save", "pipe", "[]", "regular file" },
                  { "unwrap", "home", "[]", "a folder" }, { "save", "home", "[]", "a folder" },
                  { "rescue", "huge.dat", "[]", "any vault file" }, { "save", "none/x.dat", "[]", "no such folder" },
                  { "dump", "locked.dat", "", "no permission" } };
        const QDir at(world.dir.path());
        for (const auto& [command, name, input, reason] : refusals) {
            if (::geteuid() == 0 && qstrcmp(name, "locked.dat") == 0)
                continue; // root reads whatever the modes say
            const Run refused = tool({ QLatin1String(command), at.filePath(QLatin1String(name)) }, input);
            QVERIFY2(refused.code == 1 && refused.err.contains(reason), refused.err.constData());
        }
        QVERIFY(!QFileInfo::exists(world.path(u"x.dat"_s)));
    }
};

QTEST_GUILESS_MAIN(tst_vault_tool)
#include "tst_vault_tool.moc"
