// SPDX-License-Identifier: GPL-3.0-or-later
// The command-line tool, run as a process: over files the storage code wrote, and over a
// profile's data tree beside the program, whose window must agree with it.
#include "ProgramRun.h"
#include "core/InstallerLanguage.h"
#include "core/PasswordDigest.h"
#include "core/VaultFile.h"
#include "widgets/SkinnedButton.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QScopeGuard>
#include <QStandardPaths>

#include <cctype>
#include <functional>
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

// The tool as built, or the one of an installed copy of the program folder.
QString toolPath = QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR "/tolvane-vault");

Run process(const QString& program, const QStringList& args, const QByteArray& input = QByteArray(),
    const std::function<void(QProcess&)>& setUp = {})
{
    QProcess p;
    if (setUp)
        setUp(p);
    p.start(program, args);
    p.waitForStarted();
    p.write(input);
    p.closeWriteChannel();
    const bool ended = p.waitForFinished(30000) && p.exitStatus() == QProcess::NormalExit;
    return { ended ? p.exitCode() : -1, p.readAllStandardOutput(), p.readAllStandardError() };
}
Run tool(
    const QStringList& args, const QByteArray& input = QByteArray(), const std::function<void(QProcess&)>& setUp = {})
{
    return process(toolPath, args, input, setUp);
}
QStringList titles(const QList<Entry>& entries)
{
    QStringList all;
    for (const Entry& e : entries)
        all.append(QString::fromLatin1(e.title));
    return all;
}

// A program's run as a process, on the test's data tree, its message boxes logged.
void startProgram(QProcess& program, const QString& executable, const QString& log)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(u"TOLVANE_MSGBOX_LOG"_s, log);
    program.setProcessEnvironment(env);
    program.start(executable, {});
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
        // The JSON names the fields as show --json and the options do, whatever the file calls them.
        const QByteArray json = R"([{"title":"Mail","user":"anna","url":"a\u0022\\\t","picture":"\u00ff\u0000x"}])";
        QCOMPARE(tool({ u"save"_s, file }, json).code, 0);
        const Run dump = tool({ u"dump"_s, file });
        QCOMPARE((QStringList { QString::number(dump.code), dump.first(u"user"_s), dump.first(u"url"_s),
                     dump.first(u"picture"_s) }),
            (QStringList { u"0"_s, u"anna\u0000\u0000"_s, u"a\"\\\t\u0000\u0000"_s, u"\u00ff\u0000x"_s }));
        QList<Entry> same { Entry { "Mail", {}, {}, "anna", "a\"\\\t", {}, {}, QByteArray("\xff\0x", 3) } };
        const QByteArray inner = ComposeInnerText(same);
        QCOMPARE(world.read(u"tool.dat"_s), LayerOn(inner)); // the program's own save, untouched by the dump
        QCOMPARE(tool({ u"unwrap"_s, file }).out, inner + QByteArray(3, '\0'));
        QList<Entry> lossy { Entry { "Note", {}, {}, {}, {}, {}, "a\r\nb=" + QByteArray(80, 'z'), {} } };
        SaveVault(u"C:\\..\\tool.dat"_s, lossy);
        const Run rescue = tool({ u"rescue"_s, file }); // what the program's reading loses
        QCOMPARE(QByteArray::number(rescue.code) + rescue.first(u"note"_s).toLatin1(), "0" + lossy[0].note);
        QCOMPARE(tool({ u"dump"_s, file }).first(u"note"_s).size(), 48);
        world.write(u"bad.dat"_s, LayerOn("[A]\r\nname=YW5u*W5u\r\n"));
        const Run bad = tool({ u"dump"_s, world.path(u"bad.dat"_s) }); // a bad group: told, read on as OK
        QVERIFY(bad.err.contains("Illegal Characters <*W5u>"));
        QCOMPARE(QString::number(bad.code) + bad.first(u"user"_s), u"0ann???"_s);

        QCOMPARE((QList<int> { tool({}).code, tool({ u"frobnicate"_s, u"x"_s }).code, tool({ u"--help"_s }).code }),
            (QList<int> { 2, 2, 0 }));
        // Each command's help tells that command alone; the overview keeps the exit codes.
        QVERIFY(tool({ u"--help"_s }).out.contains("Exit codes: 0 done"));
        QVERIFY(tool({ u"frobnicate"_s }).err.startsWith("tolvane-vault: no command \"frobnicate\"\n"));
        for (const char* command : { "ls", "search", "show", "clip", "generate", "add", "edit", "rm", "profiles",
                 "export", "import", "dump", "save", "unwrap", "rescue" }) {
            const QByteArray help = tool({ QLatin1String(command), u"-h"_s }).out, name = command;
            QVERIFY2(help.startsWith("Usage: tolvane-vault " + name) && !help.contains("Exit codes")
                    && help.contains("\nExample:\n  tolvane-vault " + name),
                help.constData());
        }
        // An option the command has no use for is refused, not dropped, with that command's help.
        for (const QStringList& misplaced : { QStringList { u"export"_s, u"--replace"_s },
                 { u"show"_s, u"Mail"_s, u"--password=x"_s }, { u"add"_s, u"X"_s, u"--title=Y"_s },
                 { u"ls"_s, u"-a"_s, u"user"_s }, { u"dump"_s, file, u"--json"_s } }) {
            const Run refused = tool(misplaced);
            QVERIFY2(refused.code == 2 && refused.err.contains(" no option")
                    && refused.err.contains("Usage: tolvane-vault " + misplaced.first().toLatin1()),
                refused.err.constData());
        }
        // Only regular files, and none larger than a vault: each refused at once, with the reason.
        QCOMPARE(::mkfifo(QFile::encodeName(world.path(u"pipe"_s)).constData(), 0600), 0);
        world.write(u"huge.dat"_s, QByteArray(2 << 20, '\0'));
        world.write(u"locked.dat"_s, "x");
        QFile::setPermissions(world.path(u"locked.dat"_s), QFile::WriteOwner);
        const QByteArray tooLarge = "[{\"title\":\"Big\",\"note\":\"" + QByteArray(30000, 'x') + "\"}]";
        const std::tuple<const char*, const char*, QByteArray, const char*> refusals[]
            = { { "dump", "none.dat", "", "no such file" }, { "save", "x.dat", tooLarge, "nothing was written" },
                  { "save", "x.dat", QByteArray(5 << 20, ' '), "longer than" },
                  { "save", "x.dat", "not json", "JSON array" }, { "save", "x.dat", "{}", "JSON array" },
                  { "save", "x.dat", R"([{"title":"A","name":"the file key"}])", "no vault has" },
                  { "save", "x.dat", R"([{"title":"A","user":5}])", "not a text" },
                  { "save", "x.dat", R"([{"user":"no title"}])", "no title" },
                  { "dump", "/dev/zero", "[]", "regular file" }, { "dump", "pipe", "[]", "regular file" },
                  { "save", "pipe", "[]", "regular file" }, { "unwrap", "home", "[]", "a folder" },
                  { "save", "home", "[]", "a folder" }, { "rescue", "huge.dat", "[]", "any vault file" },
                  { "save", "none/x.dat", "[]", "no such folder" }, { "dump", "locked.dat", "", "no permission" } };
        const QDir at(world.dir.path());
        for (const auto& [command, name, input, reason] : refusals) {
            if (::geteuid() == 0 && qstrcmp(name, "locked.dat") == 0)
                continue; // root reads whatever the modes say
            const Run refused = tool({ QLatin1String(command), at.filePath(QLatin1String(name)) }, input);
            QVERIFY2(refused.code == 1 && refused.err.contains(reason), refused.err.constData());
        }
        QVERIFY(!QFileInfo::exists(world.path(u"x.dat"_s)));
    }

    // A first start of the program lays the tree down; the tool adds entries; the window shows and
    // finds what the tool shows and finds, and leaves the bytes the tool wrote; both see a removal.
    void profileCommandsAndTheWindowAgree()
    {
        ProgramRun run; // a window of the program in this process, on the same data tree
        TestWorld::copyTree(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR), run.world.path(u"installed"_s));
        toolPath = run.world.path(u"installed/tolvane-vault"_s);
        qunsetenv("TOLVANE_PROGRAM_DIR"); // the tool and the program find their folder themselves
        QCOMPARE(tool({ u"ls"_s }).err,
            QByteArray("tolvane-vault: no profile yet: start Tolvane once, and it lays "
                       "down the data tree\n"));
        QProcess program;
        program.start(run.world.path(u"installed/tolvane"_s), {});
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(run.data(u"Administrator/list.dat"_s)), 15000);
        ::kill(static_cast<pid_t>(program.processId()), SIGTERM); // ends the run as File > Close does
        QVERIFY(program.waitForFinished(10000) && program.exitCode() == 0);
        QVERIFY(run.vaultOnDisk().isEmpty());

        for (const QStringList& add : { QStringList { u"Shop"_s, u"--user=bob"_s, u"--password=sh0p-pass"_s },
                 QStringList { u"bank"_s, u"--user"_s, u"ann"_s, u"--url"_s, u"http://bank.example"_s },
                 QStringList { u"Mail"_s, u"--note"_s, u"for ann"_s, u"--generate"_s, u"--length=9"_s } }) {
            const Run added = tool(QStringList { u"add"_s } + add);
            QVERIFY2(added.code == 0, added.err);
        }
        QCOMPARE(tool({ u"add"_s, u"Mail"_s }).code, 1); // the title is the entry's key
        const QString found = QString::fromUtf8(tool({ u"search"_s, u"ANN"_s }).out);
        QCOMPARE(found, u"bank (ann)\nMail\n"_s);
        const Run nothing = tool({ u"search"_s, u"zzz"_s }); // as grep: nothing found is exit 1
        QVERIFY2(nothing.code == 1 && nothing.out.isEmpty(), nothing.out);
        const QString shown = QString::fromUtf8(tool({ u"show"_s, u"Shop"_s }).out);
        QVERIFY2(
            shown.contains(u"User name:  bob\n"_s) && shown.contains(u"Password:   ********\n"_s), qPrintable(shown));
        const QStringList fields { u"show"_s, u"Shop"_s, u"-a"_s, u"password"_s, u"--attribute=user"_s };
        QCOMPARE(tool(fields).out, QByteArray("sh0p-pass\nbob\n")); // asked for by name: in clear
        QCOMPARE(tool({ u"show"_s, u"Shop"_s, u"-a"_s, u"name"_s }).code, 2);
        const QJsonObject json
            = QJsonDocument::fromJson(tool({ u"show"_s, u"Mail"_s, u"--show-password"_s, u"--json"_s }).out).object();
        QCOMPARE(json[u"password"_s].toString().size(), 9);
        QCOMPARE(json.keys().size(), 8); // every field, the picture too, as the other JSON has them
        VaultWindow* vault = run.start();
        QVERIFY(vault);
        QCOMPARE(ui::rows(vault, Lang(Text::PasswordList)).join(u"\n"_s) + u"\n"_s,
            QString::fromUtf8(tool({ u"ls"_s }).out));
        ui::get<QLineEdit>(vault, Lang(Text::SearchLabel))->setText(u"ANN"_s);
        ui::click<SkinnedButton>(vault, Lang(Text::SearchLabel));
        QCOMPARE(ui::rows(vault, Lang(Text::SearchResults)).join(u"\n"_s) + u"\n"_s, found);
        run.close();

        // One entry more, by the tool and by the window's new-entry dialog: the same bytes on disk.
        const QString vaultFile = u"appdata/Brenmark/Tolvane/data/Administrator/list.dat"_s;
        const QByteArray before = run.world.read(vaultFile);
        QCOMPARE(tool({ u"add"_s, u"Extra"_s, u"--user=x"_s, u"--password=a=b"_s }).err,
            QByteArray("tolvane-vault: warning: the password of \"Extra\" will read back as \"a&1b\"\n"));
        const QByteArray byTheTool = run.world.read(vaultFile);
        run.world.write(vaultFile, before);
        vault = run.start();
        ui::onNextModal([](QWidget* dialog) {
            ui::type(dialog, Lang(Text::TitleLabel), u"Extra"_s);
            ui::type(dialog, Lang(Text::UserNameLabel), u"x"_s);
            ui::type(dialog, Lang(Text::PasswordLabel), u"a=b"_s);
            ui::click(dialog, Lang(Text::Save));
        });
        ui::click(vault, Lang(Text::NewEntryItem));
        run.close();
        QCOMPARE(run.world.read(vaultFile), byTheTool);

        QCOMPARE(tool({ u"rm"_s, u"Shop"_s }).code, 0);
        QCOMPARE(tool({ u"ls"_s, u"--json"_s }).out, QByteArray("[\n    \"bank\",\n    \"Extra\",\n    \"Mail\"\n]\n"));
        QCOMPARE(ui::rows(run.start(), Lang(Text::PasswordList)), QStringList({ u"bank"_s, u"Extra"_s, u"Mail"_s }));
        run.close();

        // The login's password: asked on the terminal, here the first line of standard input.
        run.setIni(u"Administrator/settings.txt"_s, Keys::settings, Keys::password, MD5Hex(u"s3cret"_s));
        const Run wrong = tool({ u"ls"_s }, "secret\n"), none = tool({ u"ls"_s }),
                  right = tool({ u"ls"_s }, "s3cret\n");
        QVERIFY2(wrong.code == 1 && wrong.err.contains("wrong password for profile \"Administrator\""), wrong.err);
        QVERIFY2(none.code == 1 && none.err.contains("no password given"), none.err);
        QCOMPARE(right.code, 0);
        QCOMPARE(right.out, QByteArray("bank\nExtra\nMail\n"));
        const Run nobody = tool({ u"ls"_s, u"--profile"_s, u"Nobody"_s });
        QVERIFY2(nobody.code == 1 && nobody.err.contains("no profile \"Nobody\""), nobody.err);
        QCOMPARE(tool({ u"ls"_s, u"--frobnicate"_s }).code, 2);
        QCOMPARE(tool({ u"edit"_s, u"Mail"_s }, "s3cret\n").code, 2); // nothing to change: no save, no new layer
        QCOMPARE(tool({ u"generate"_s, u"--length=16"_s }).code, 1);
        toolPath = QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR "/tolvane-vault");
    }

    // Writers of one data tree exclude each other through the tree's lock: tools among
    // themselves, and any tool while a program holds the tree, whatever folder it runs from.
    void writesTakeTheDataTreesLock()
    {
        ProgramRun run;
        run.provision();
        run.writeVault({ Entry { "Seed", {}, {}, {}, {}, {}, {}, {} } });
        std::vector<std::unique_ptr<QProcess>> tools;
        for (int i = 0; i < 10; ++i) {
            tools.push_back(std::make_unique<QProcess>());
            tools.back()->start(toolPath, { u"add"_s, u"T%1"_s.arg(i) });
        }
        QStringList done;
        for (int i = 0; i < 10; ++i) {
            QVERIFY(tools[i]->waitForFinished(30000));
            if (tools[i]->exitCode() == 0)
                done.append(u"T%1"_s.arg(i));
        }
        const QStringList onDisk = titles(run.vaultOnDisk());
        QCOMPARE(done.size(), 10);
        for (const QString& title : done)
            QVERIFY2(onDisk.contains(title), qPrintable(title + u" reported done, not in "_s + onDisk.join(u" "_s)));

        // The window's program holds the tree from its login: a tool already waiting at its
        // password prompt is refused once the password is in, and so is a save onto list.dat.
        run.setIni(u"Administrator/settings.txt"_s, Keys::settings, Keys::password, MD5Hex(u"pw"_s));
        QProcess waiting;
        waiting.start(toolPath, { u"add"_s, u"Late"_s });
        QVERIFY(waiting.waitForStarted());
        run.start();
        QVERIFY(run.login());
        waiting.write("pw\n");
        waiting.closeWriteChannel();
        QVERIFY(waiting.waitForFinished(10000));
        QVERIFY2(waiting.exitCode() == 1 && waiting.readAllStandardError().contains("Tolvane is running"), "");
        const Run live = tool({ u"save"_s, run.data(u"Administrator/list.dat"_s) }, R"([{"title":"Lost"}])");
        QVERIFY2(live.code == 1 && live.err.contains("Tolvane is running"), live.err);
        const Run imported = tool({ u"import"_s, u"-"_s, u"--format=json"_s }, "pw\n[{\"title\":\"Lost\"}]");
        QVERIFY2(imported.code == 1 && imported.err.contains("Tolvane is running"), imported.err);
        const Run exported = tool({ u"export"_s }, "pw\n"); // read, but said to be the last saved
        QVERIFY2(exported.code == 0 && exported.err.contains("Tolvane is running"), exported.err);
        // Nor through a link to the vault, or to its folder, from outside the tree.
        QVERIFY(QFile::link(run.data(u"Administrator/list.dat"_s), run.world.path(u"link.dat"_s)));
        QVERIFY(QFile::link(run.data(u"Administrator"_s), run.world.path(u"profile"_s)));
        QCOMPARE(tool({ u"save"_s, run.world.path(u"link.dat"_s) }, R"([{"title":"Lost"}])").code, 1);
        const Run linked = tool({ u"save"_s, run.world.path(u"profile/list.dat"_s) }, R"([{"title":"Lost"}])");
        QVERIFY2(linked.code == 1 && linked.err.contains("Tolvane is running"), linked.err);
        QVERIFY(!titles(run.vaultOnDisk()).contains(u"Late"_s) && !titles(run.vaultOnDisk()).contains(u"Lost"_s));
        run.close();
        run.setIni(u"Administrator/settings.txt"_s, Keys::settings, Keys::password, QString());

        // No save through a link inside a data tree.
        QDir().mkpath(run.world.path(u"elsewhere"_s));
        QVERIFY(QFile::link(run.world.path(u"elsewhere"_s), run.data(u"Linked"_s)));
        QCOMPARE(tool({ u"save"_s, run.data(u"Linked/list.dat"_s) }, "[]").code, 1);
        QVERIFY(!QFileInfo::exists(run.world.path(u"elsewhere/list.dat"_s)));

        // A program started from another folder than the tool's holds the tree as well, and a
        // second copy from a third folder ends with the message to a second copy.
        TestWorld::copyTree(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR), run.world.path(u"second"_s));
        const QByteArray before = run.world.read(u"appdata/Brenmark/Tolvane/data/Administrator/list.dat"_s);
        QProcess program, second;
        startProgram(program, QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR "/tolvane"), run.world.path(u"boxes.log"_s));
        QTRY_VERIFY_WITH_TIMEOUT(
            run.world.read(u"appdata/Brenmark/Tolvane/data/Administrator/list.dat"_s) != before, 15000);
        const Run whileRunning = tool({ u"add"_s, u"Early"_s });
        QVERIFY2(whileRunning.code == 1 && whileRunning.err.contains("Tolvane is running"), whileRunning.err);
        startProgram(second, run.world.path(u"second/tolvane"_s), run.world.path(u"second.log"_s));
        const bool secondEnded = second.waitForFinished(15000);
        second.kill();
        QVERIFY(secondEnded
            && run.world.read(u"second.log"_s).contains(Lang(Text::AlreadyRunning).section(u'\r', 0, 0).toUtf8()));
        ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
        QVERIFY(program.waitForFinished(10000));
        QVERIFY(!titles(run.vaultOnDisk()).contains(u"Early"_s));
    }

    // The arguments mean what the help says; a title the file can't keep as given is refused;
    // every read is bounded and linear in what it reads.
    void argumentsTitlesAndBoundedReads()
    {
        ProgramRun run;
        run.provision();
        run.writeVault({ Entry { "Seed", {}, {}, {}, {}, {}, {}, {} } });
        QCOMPARE(tool({ u"add"_s, u"Foo"_s, u"--note"_s, u"-h"_s }).code, 0);
        QVERIFY(titles(run.vaultOnDisk()).contains(u"Foo"_s));
        const Run dashH = tool({ u"show"_s, u"--"_s, u"-h"_s });
        QVERIFY2(dashH.code == 1 && dashH.err.contains("no entry titled \"-h\""), dashH.err);
        for (const char* seconds : { "0", "86401" })
            QCOMPARE(tool({ u"clip"_s, u"Foo"_s, u"--seconds"_s, QLatin1String(seconds) }).code, 2);
        const Run noDisplay = tool({ u"clip"_s, u"Foo"_s }, {}, [](QProcess& p) {
            QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
            env.remove(u"QT_QPA_PLATFORM"_s);
            env.remove(u"WAYLAND_DISPLAY"_s);
            env.insert(u"DISPLAY"_s, u":4242"_s);
            p.setProcessEnvironment(env);
        });
        QVERIFY2(noDisplay.code == 1 && noDisplay.err.contains("no display"), noDisplay.err);
        // The clipboard keeper beside the tool holds its copy, to its time or to a Ctrl+C: the tool
        // links no GUI library. A copy of the tool without the keeper says so.
        QFile built(toolPath);
        QVERIFY(built.open(QIODevice::ReadOnly));
        const QByteArray binary = built.readAll();
        QVERIFY(!binary.contains("libQt6Gui") && !binary.contains("libQt6Network") && !binary.contains("libQt6DBus"));
        const Run held = tool({ u"clip"_s, u"Foo"_s, u"user"_s, u"--seconds=1"_s });
        QVERIFY2(held.code == 0 && held.err.contains("The user name of \"Foo\" is on the clipboard for 1 second ("),
            held.err);
        QProcess clip;
        clip.start(toolPath, { u"clip"_s, u"Foo"_s, u"--seconds=60"_s });
        QByteArray said;
        QTRY_VERIFY_WITH_TIMEOUT((said += clip.readAllStandardError()).contains("Ctrl+C clears it now"), 10000);
        ::kill(static_cast<pid_t>(clip.processId()), SIGINT);
        QVERIFY(clip.waitForFinished(5000) && clip.exitCode() == 0);
        QVERIFY(QFile::copy(toolPath, run.world.path(u"alone"_s)));
        toolPath = run.world.path(u"alone"_s);
        const Run alone = tool({ u"clip"_s, u"Foo"_s });
        toolPath = built.fileName();
        QVERIFY2(alone.code == 1 && alone.err.contains("needs tolvane-clipboard-keeper"), alone.err);
        const QString vault = run.data(u"Administrator/list.dat"_s);
        QCOMPARE(tool({ u"dump"_s, vault }, {}, [](QProcess& p) { p.setStandardOutputFile(u"/dev/full"_s); }).code, 1);
        run.setConfig(Keys::defaultProfile, u"Nobody"_s); // the login offers Administrator: no password, no prompt
        QCOMPARE(tool({ u"ls"_s }).code, 0);
        run.setConfig(Keys::defaultProfile, u"Administrator"_s);

        // Titles: no line break or tab (they would make sections of their own); only letters of
        // the code page, in every command.
        qputenv("TOLVANE_CODEPAGE", "1252");
        const QStringList refusedTitles[] = { { u"add"_s, u"Inj]\r\nage=x\r\n[Entry3"_s }, { u"add"_s, u"a\tb"_s },
            { u"add"_s, u"Łódź"_s }, { u"show"_s, u"Żódź"_s }, { u"rm"_s, u"Żódź"_s },
            { u"edit"_s, u"Foo"_s, u"--title=Łódź"_s }, { u"edit"_s, u"Foo"_s, u"--title="_s },
            { u"edit"_s, u"Foo"_s, u"--title"_s, u"Seed"_s } }; // a title taken, or none
        for (const QStringList& args : refusedTitles)
            QCOMPARE(tool(args).code, 1);
        QCOMPARE(tool({ u"save"_s, run.world.path(u"new.dat"_s) }, "[{\"title\":\"A]\\r\\n[B\"}]").code, 1);
        qunsetenv("TOLVANE_CODEPAGE");
        QCOMPARE(titles(run.vaultOnDisk()), (QStringList { u"Seed"_s, u"Foo"_s }));
        QCOMPARE(tool({ u"edit"_s, u"Foo"_s, u"--title"_s, u"Bar"_s }).code, 0); // renamed in its place
        QCOMPARE(titles(run.vaultOnDisk()), (QStringList { u"Seed"_s, u"Bar"_s }));

        // 150,000 sections in 1 MiB, and a value of 500,000 escapes: read in the tool's time limit.
        QByteArray sections, title;
        for (int i = 0; i < 150000; ++i) {
            title.clear();
            for (int n = i; title.isEmpty() || n > 0; n /= 62)
                title.prepend("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"[n % 62]);
            sections += '[' + title + "]\r\n";
        }
        run.world.write(u"appdata/Brenmark/Tolvane/data/Administrator/list.dat"_s, LayerOn(sections));
        const Run last = tool({ u"show"_s, QString::fromLatin1(title) });
        QVERIFY2(last.code == 0 && last.out.startsWith("Title:      " + title + '\n'), last.err);
        run.world.write(u"escapes.dat"_s, LayerOn("[P]\r\npicture=" + QByteArray("&0").repeated(500000) + "\r\n"));
        QCOMPARE(tool({ u"dump"_s, run.world.path(u"escapes.dat"_s) }).first(u"picture"_s).size(), 500000);
        // A save over a file larger than any vault leaves it; a password line is read to a bound.
        const QByteArray big(2 << 20, 'x');
        run.world.write(u"big.dat"_s, big);
        QCOMPARE(tool({ u"save"_s, run.world.path(u"big.dat"_s) }, "[]").code, 1);
        QVERIFY(run.world.read(u"big.dat"_s) == big);
        run.setIni(u"Administrator/settings.txt"_s, Keys::settings, Keys::password, MD5Hex(u"pw"_s));
        const Run endless = tool({ u"ls"_s }, big);
        QVERIFY2(endless.code == 1 && endless.err.contains("longer than"), endless.err);
    }

    // A profile goes out whole and comes back: as JSON, and through the real KeePassXC as its
    // CSV (what that holds) and its XML (every field), each import writing what the program's
    // save writes for those entries. Titles taken are refused unless replaced, where they stand.
    void exportAndImport()
    {
        ProgramRun run;
        run.provision({ u"Json"_s, u"Csv"_s, u"Xml"_s });
        run.writeVault({ Entry { "Mail & co", "a&b=[c]\xe9", "C:\\d\\x.doc", "anna", "https://m.example",
                             "a long pass phrase", "line 1\r\nline 2", QByteArray("GIF89a\0\x01\x7f\xff&3", 12) },
            Entry { "Shop", "sh0p", {}, "bob", {}, {}, {}, {} } });
        const QList<Entry> loaded = run.vaultOnDisk();
        // The bytes the program's save writes for these entries, to compare with a profile's.
        const auto saved = [&](QList<Entry> entries) {
            SaveVault(platform::ToWindows(run.world.path(u"expected.dat"_s)), entries);
            return run.world.read(u"expected.dat"_s);
        };
        const Run json = tool({ u"export"_s, u"--format=json"_s });
        QCOMPARE(json.out, tool({ u"dump"_s, run.data(u"Administrator/list.dat"_s) }).out);
        QCOMPARE(tool({ u"import"_s, u"-"_s, u"--format=json"_s, u"--profile=Json"_s }, json.out).code, 0);
        const QByteArray imported = run.world.read(u"appdata/Brenmark/Tolvane/data/Json/list.dat"_s);
        QCOMPARE(imported, saved(loaded));

        run.world.write(u"in.csv"_s,
            "\"Group\",\"Title\",\"Username\",\"Password\",\"URL\",\"Notes\"\n\"G\",\"New\",\"\",\"\",\"\",\""
                + QByteArray(49, 'n') + "\"\n\"G\",\"Shop\",\"\xce\xa9\",\"x=y\",\"\",\"\"\n"
                + "\"G/Recycle Bin\",\"Gone\",\"\",\"\",\"\",\"\"\n\"G\",\"Mail & co\",\"\",\"new\",\"\",\"\"\n");
        const QStringList csv { u"import"_s, run.world.path(u"in.csv"_s), u"--profile=Json"_s };
        const Run taken = tool(csv);
        QVERIFY2(taken.code == 1 && taken.err.contains("titled \"Shop\", \"Mail & co\" already"), taken.err);
        QCOMPARE(run.world.read(u"appdata/Brenmark/Tolvane/data/Json/list.dat"_s), imported);
        const Run replaced = tool(csv + QStringList { u"--replace"_s });
        // Deleted entries stay out; what the CSV has no column for stays as the replaced entry had it.
        QCOMPARE(titles(run.vaultOnDisk(u"Json"_s)), (QStringList { u"Mail & co"_s, u"Shop"_s, u"New"_s }));
        QCOMPARE(
            tool({ u"show"_s, u"Mail & co"_s, u"-a"_s, u"passphrase"_s, u"-a"_s, u"password"_s, u"--profile=Json"_s })
                .out,
            "a long pass phrase\nnew\n");
        for (const char* warning : { "the note of \"New\" will read back as \"nnn",
                 "the user of \"Shop\" holds "
                 "characters that the files' code page lacks",
                 "\"Shop\" will read back as \"x&1y" })
            QVERIFY2(replaced.code == 0 && replaced.err.contains(warning), replaced.err);
        run.world.write(u"twice.csv"_s, "Title,Password\nA,1\nA,2\n");
        QCOMPARE(tool({ u"import"_s, run.world.path(u"twice.csv"_s), u"--profile=Csv"_s }).code, 1);
        QCOMPARE(tool({ u"import"_s, u"in.txt"_s }).code, 2); // the format neither given nor told by the name

        const QString cli = QStandardPaths::findExecutable(u"keepassxc-cli"_s);
        if (cli.isEmpty())
            QSKIP("keepassxc-cli is missing (Debian's package keepassxc): the way to KeePassXC and back is untested");
        const QString db = run.world.path(u"moved.kdbx"_s);
        run.world.write(u"out.xml"_s, tool({ u"export"_s }).out);
        QCOMPARE(process(cli, { u"import"_s, u"-p"_s, u"-t"_s, u"100"_s, run.world.path(u"out.xml"_s), db }, "pw\npw\n")
                     .code,
            0);
        // What the window shows, in each field KeePass has a place for.
        const auto shown = [](const QByteArray& v) { return v.split('\0').first(); };
        for (const Entry& e : loaded) {
            QStringList asked { u"show"_s, u"-q"_s, u"-s"_s, db, Shown(e.title) };
            QByteArray expected;
            int n = 0; // KeePass's own four are always there, the others when the entry has them
            for (const auto& [key, value] :
                { std::pair { "Password", shown(e.password) }, { "UserName", shown(e.userName) },
                    { "URL", shown(e.url) }, { "Notes", shown(e.note) }, { "Passphrase", shown(e.passphrase) },
                    { "Document", shown(e.document) }, { "Picture", e.picture.toBase64() } }) {
                if (n++ < 4 || !value.isEmpty())
                    (asked << u"-a"_s << QLatin1String(key), expected += Shown(value).toUtf8() + '\n');
            }
            QCOMPARE(process(cli, asked, "pw\n").out, expected);
        }
        run.world.write(u"back.csv"_s, process(cli, { u"export"_s, u"-q"_s, u"-f"_s, u"csv"_s, db }, "pw\n").out);
        run.world.write(u"back.xml"_s, process(cli, { u"export"_s, u"-q"_s, db }, "pw\n").out);
        QCOMPARE(tool({ u"import"_s, run.world.path(u"back.csv"_s), u"--profile=Csv"_s }).code, 0);
        QCOMPARE(tool({ u"import"_s, run.world.path(u"back.xml"_s), u"--profile=Xml"_s }).code, 0);
        QList<Entry> whole = loaded, csvHolds = loaded;
        for (qsizetype i = 0; i < loaded.size(); ++i) {
            for (QByteArray* field : { &whole[i].password, &whole[i].document, &whole[i].userName, &whole[i].url,
                     &whole[i].passphrase, &whole[i].note })
                *field = shown(*field);
            csvHolds[i] = whole[i];
            csvHolds[i].document = csvHolds[i].passphrase = csvHolds[i].picture = QByteArray();
        }
        QCOMPARE(run.world.read(u"appdata/Brenmark/Tolvane/data/Csv/list.dat"_s), saved(csvHolds));
        QCOMPARE(run.world.read(u"appdata/Brenmark/Tolvane/data/Xml/list.dat"_s), saved(whole));
    }

    // generate --strong: every kind of character and none that the vault escapes, 8 to 48 of
    // them, read back whole once stored. The completion offers profiles, titles (blanks and all,
    // taken as text, never waiting for a password) and the commands' options and values.
    void strongPasswordsAndCompletion()
    {
        ProgramRun run;
        run.provision();
        run.writeVault({ Entry { "Mail", {}, {}, {}, {}, {}, {}, {} }, Entry { "My Bank", {}, {}, {}, {}, {}, {}, {} },
            Entry { "$(touch pwned)", {}, {}, {}, {}, {}, {}, {} } });
        for (int length = 7; length <= 49; ++length) {
            const QString title = u"S%1"_s.arg(length);
            const Run added = tool({ u"add"_s, title, u"--generate"_s, u"--strong"_s, u"--length=%1"_s.arg(length) });
            const QByteArray password = added.err.mid(20).trimmed(); // after "Generated password: "
            if (length == 7 || length == 49) {
                QCOMPARE(added.code, 1);
                continue;
            }
            QVERIFY2(added.code == 0 && added.err == "Generated password: " + password + '\n', added.err);
            QCOMPARE(password.size(), length);
            QCOMPARE(tool({ u"show"_s, title, u"-a"_s, u"password"_s }).out, password + '\n');
            int kinds = 0;
            for (char c : password) {
                QVERIFY2(c > ' ' && c < 127 && !QByteArray("&=[];").contains(c), password);
                kinds |= std::isupper(c) ? 1 : std::islower(c) ? 2 : std::isdigit(c) ? 4 : 8;
            }
            QCOMPARE(kinds, 15);
        }
        QCOMPARE(titles(run.vaultOnDisk()).size(), 3 + 41);
        QCOMPARE(tool({ u"generate"_s, u"--strong"_s, u"--digits"_s }).code, 2);
        QCOMPARE(tool({ u"add"_s, u"X"_s, u"--strong"_s }).code, 2); // --strong alone would store no password
        QCOMPARE(tool({ u"add"_s, u"X"_s, u"--length=8"_s }).code, 2); // and --length alone be dropped

        const auto complete = [&](const QStringList& words) {
            QProcess bash;
            bash.setWorkingDirectory(run.world.dir.path());
            bash.start(u"bash"_s,
                QStringList { u"-c"_s,
                    u"source \"$0\"; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); _tolvane_vault \"$1\"; "
                    "printf '%s\\n' \"${COMPREPLY[@]}\""_s,
                    QStringLiteral(TOLVANE_SOURCE_PROGRAM_DIR "/../bash-completion/tolvane-vault"), toolPath }
                    + words);
            return bash.waitForFinished(10000) ? bash.readAllStandardOutput() : "hung";
        };
        const std::pair<QStringList, QByteArray> completions[] = { { { u"show"_s, u"M"_s }, "Mail\nMy\\ Bank\n" },
            { { u"clip"_s, u"My\\ B"_s }, "My\\ Bank\n" },
            { { u"clip"_s, u"Mail"_s, u"pa"_s }, "passphrase\npassword\n" },
            { { u"edit"_s, u"--user"_s, u"x"_s, u"--profile"_s, u"Administrator"_s, u"'My"_s }, "My Bank\n" },
            { { u"rm"_s, u"$"_s }, "\\$\\(touch\\ pwned\\)\n" },
            { { u"ls"_s, u"--profile"_s, u""_s }, "Administrator\n" }, { { u"ex"_s }, "export\n" },
            { { u"export"_s, u"--format"_s, u""_s }, "xml\njson\n" },
            { { u"import"_s, u"p.csv"_s, u"--format"_s, u""_s }, "keepassxc-csv\njson\nxml\n" },
            { { u"import"_s, u"p.csv"_s, u"--r"_s }, "--replace\n" }, { { u"generate"_s, u"--st"_s }, "--strong\n" } };
        for (const auto& [words, offered] : completions)
            QCOMPARE(complete(words), offered);
        QVERIFY(!QFileInfo::exists(run.world.path(u"pwned"_s)));
        run.setIni(u"Administrator/settings.txt"_s, Keys::settings, Keys::password, MD5Hex(u"pw"_s));
        QCOMPARE(complete({ u"show"_s, u"M"_s }), QByteArray("\n")); // nothing asked, nothing offered
    }

    // The code page is the first start's: a name given under a Polish desktop is the same name
    // when the program or the tool later runs under an English one.
    void aProfileNamedUnderOneLocaleIsFoundUnderAnother()
    {
        // Last of the tests: it leaves the Polish table loaded in this process.
        const QByteArray lang = qgetenv("LANG"), language = qgetenv("LANGUAGE");
        const auto restore = qScopeGuard([&] {
            qputenv("LANG", lang);
            qputenv("LANGUAGE", language);
            toolPath = QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR "/tolvane-vault");
        });
        TestWorld world;
        TestWorld::copyTree(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR), world.path(u"installed"_s));
        toolPath = world.path(u"installed/tolvane-vault"_s);
        qunsetenv("TOLVANE_PROGRAM_DIR");
        const QByteArray testLocale = qgetenv("LC_ALL");
        qunsetenv("LC_ALL");
        qputenv("LANG", "pl_PL.UTF-8");
        qputenv("LANGUAGE", "pl");
        QProcess program;
        program.start(world.path(u"installed/tolvane"_s), {});
        const QString data = u"appdata/Brenmark/Tolvane/data/"_s;
        QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(world.path(data + u"Administrator/list.dat"_s)), 15000);
        ::kill(static_cast<pid_t>(program.processId()), SIGTERM);
        QVERIFY(program.waitForFinished(10000));
        // "Łódź", as that run names it in its files (Windows-1250) and as a folder, and the default.
        const QString lodz = QString::fromUtf8("Łódź");
        world.write(data + u"users.txt"_s,
            "Administrator\r\n\xa3\xf3"
            "d\x9f\r\n");
        world.write(data + lodz + u"/dummy.dat"_s, "x");
        world.write(data + u"config.txt"_s,
            "[user]\r\ncurrent=Administrator\r\ndefault=\xa3\xf3"
            "d\x9f\r\n");

        qputenv("LANG", "en_US.UTF-8");
        qputenv("LANGUAGE", "en");
        const Run added = tool({ u"add"_s, u"Bike"_s, u"--profile"_s, lodz });
        const Run listed = tool({ u"ls"_s }); // the default, as the login offers it
        qputenv("LC_ALL", testLocale);
        QVERIFY2(added.code == 0, added.err.constData());
        QVERIFY2(listed.code == 0 && listed.out == "Bike\n", listed.err.constData());
        QVERIFY(QFileInfo::exists(world.path(data + lodz + u"/list.dat"_s)));

        // The Polish captions, read in that code page.
        qputenv("TOLVANE_PROGRAM_DIR", world.path(u"program"_s).toLocal8Bit());
        UseKeptCodePage(false);
        LoadLanguage();
        platform::UseCodePage(1252);
        QCOMPARE(Lang(Text::PasswordList), QString::fromUtf8("Lista haseł:"));
    }
};

QTEST_MAIN(tst_vault_tool)
#include "tst_vault_tool.moc"
