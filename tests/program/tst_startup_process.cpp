// SPDX-License-Identifier: GPL-3.0-or-later
// Runs the built program as a process, the way a user starts it, in a temporary world.
#include "TestWorld.h"
#include "core/RegistryLayer.h"

#include <QProcess>

#include <algorithm>

class tst_startup_process : public QObject
{
    Q_OBJECT

    QScopedPointer<TestWorld> world;
    QProcessEnvironment env; // of the next start

    // A start of the installed copy; whatever still runs is ended with the test.
    QProcess* start(const QStringList& args = {})
    {
        auto* p = new QProcess(this);
        p->setProcessEnvironment(env);
        p->start(world->path(QStringLiteral("installed/tolvane")), args);
        p->waitForStarted();
        return p;
    }

    bool exists(const QString& file) const { return QFileInfo::exists(world->path(file)); }

    QString boxes() const { return QString::fromUtf8(world->read(QStringLiteral("boxes.log"))); }

    // A start that ends at once, refused as a second copy.
    bool refused(const QStringList& args = {})
    {
        const QString refusal = QStringLiteral("16|Tolvane|Tolvane is already running.");
        const qsizetype before = boxes().count(refusal);
        QProcess* p = start(args);
        return p->waitForFinished(10000) && p->exitCode() == 0 && boxes().count(refusal) == before + 1;
    }

    static void end(QProcess* p)
    {
        p->kill();
        p->waitForFinished();
    }

private Q_SLOTS:
    void init()
    {
        world.reset(new TestWorld);
        TestWorld::copyTree(QStringLiteral(TOLVANE_BUILT_PROGRAM_DIR), world->path(QStringLiteral("installed")));
        env = QProcessEnvironment::systemEnvironment();
        env.remove(QStringLiteral("TOLVANE_PROGRAM_DIR")); // the program finds its own folder
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        env.insert(QStringLiteral("TOLVANE_MSGBOX_LOG"), world->path(QStringLiteral("boxes.log")));
        env.insert(QStringLiteral("HOME"), world->path(QStringLiteral("home")));
    }

    void cleanup()
    {
        for (QProcess* p : findChildren<QProcess*>())
            end(p);
        qDeleteAll(findChildren<QProcess*>());
    }

    void aNewUserGetsTheDesktopsLanguageWithoutAMessage_data()
    {
        QTest::addColumn<QString>("desktop");
        QTest::addColumn<QString>("language");
        QTest::newRow("Polish") << "pl_PL"
                                << "Polish";
        QTest::newRow("German") << "de_AT:de"
                                << "Deutsch";
        QTest::newRow("other") << "fr_FR"
                               << "English";
    }

    void aNewUserGetsTheDesktopsLanguageWithoutAMessage()
    {
        QFETCH(QString, desktop);
        QFETCH(QString, language);
        env.insert(QStringLiteral("LANGUAGE"), desktop);
        start();
        QTRY_VERIFY_WITH_TIMEOUT(exists(QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/list.dat")), 15000);
        QCOMPARE(GetProgramSetting(QStringLiteral("curLang")), language);
        QCOMPARE(boxes(), QString());
    }

    void secondCopyIsRefusedAndRestartGetsThrough()
    {
        // A store that exists without a language: the one message that is no slot, then English
        // is chosen and kept.
        SaveProgramSetting(QStringLiteral("curLang"), QString());
        QProcess* first = start();
        QTRY_COMPARE_WITH_TIMEOUT(
            boxes(), QStringLiteral("16|Tolvane|Error: Failed loading selected language.\n"), 10000);
        QTRY_COMPARE_WITH_TIMEOUT(GetProgramSetting(QStringLiteral("curLang")), QStringLiteral("English"), 10000);
        for (const char* args : { "", "/RESTART", "/restart x" })
            QVERIFY2(refused(QString::fromLatin1(args).split(QLatin1Char(' '), Qt::SkipEmptyParts)), args);

        const QString refusals = boxes();
        QVERIFY(!start({ QStringLiteral("/restart") })->waitForFinished(1500));
        QCOMPARE(boxes(), refusals);
        QCOMPARE(first->state(), QProcess::Running); // the first is not disturbed
    }

    void aCopyIsSeenFromItsStartAndOfThreeAtOnceOneRuns()
    {
        // The first start waits at its first message, a real box that nobody answers.
        SaveProgramSetting(QStringLiteral("curLang"), QString());
        env.remove(QStringLiteral("TOLVANE_MSGBOX_LOG"));
        QProcess* first = start();
        env.insert(QStringLiteral("TOLVANE_MSGBOX_LOG"), world->path(QStringLiteral("boxes.log")));
        QTRY_COMPARE_WITH_TIMEOUT(world->runningCopy(), first->processId(), 10000);
        QVERIFY(refused());
        end(first);

        const QList<QProcess*> starts = { start(), start(), start() };
        QTRY_COMPARE_WITH_TIMEOUT(boxes().count(QStringLiteral("already running")), 1 + 2, 10000); // two more
        QTest::qWait(500);
        const auto running = [](QProcess* p) { return p->state() == QProcess::Running; };
        QCOMPARE(std::count_if(starts.begin(), starts.end(), running), 1);
    }

    void aSharedFolderIsShunnedAndNoFolderStopsNothing()
    {
        SaveProgramSetting(QStringLiteral("curLang"), QStringLiteral("English"));
        // A folder that other accounts can write to is not used: the user's own cache is.
        const QString shared = world->path(QStringLiteral("shared"));
        QVERIFY(QDir().mkpath(shared) && QFile::setPermissions(shared, QFileDevice::Permissions(0x7777)));
        env.insert(QStringLiteral("TOLVANE_RUNTIME_DIR"), shared);
        QProcess* first = start();
        const QDir cache(world->path(QStringLiteral("home/.cache/tolvane")));
        QTRY_COMPARE_WITH_TIMEOUT(cache.entryList({ QStringLiteral("*.run") }).size(), 1, 10000);
        QVERIFY(QDir(shared).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
        QVERIFY(refused());
        end(first);

        // With no folder it could use at all, the program starts all the same, and says nothing.
        world->write(QStringLiteral("not-a-folder"), "");
        env.insert(QStringLiteral("TOLVANE_RUNTIME_DIR"), world->path(QStringLiteral("not-a-folder")));
        env.insert(QStringLiteral("XDG_CACHE_HOME"), world->path(QStringLiteral("not-a-folder/cache")));
        QFile::remove(world->path(QStringLiteral("boxes.log")));
        QProcess* alone = start();
        QTRY_VERIFY_WITH_TIMEOUT(exists(QStringLiteral("appdata/Brenmark/Tolvane/data/Administrator/list.dat")), 15000);
        QCOMPARE(alone->state(), QProcess::Running);
        QVERIFY(boxes().isEmpty());
    }

    void withoutADisplayItSaysSoAndEnds()
    {
        for (const char* name : { "DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM" })
            env.remove(QString::fromLatin1(name));
        QProcess* p = start();
        QVERIFY(p->waitForFinished(10000));
        QCOMPARE(p->exitCode(), 1);
        QVERIFY(p->readAllStandardError().contains("no display"));
        QVERIFY(!exists(QStringLiteral("appdata/Brenmark/Tolvane/data")));
    }
};

QTEST_GUILESS_MAIN(tst_startup_process)
#include "tst_startup_process.moc"
