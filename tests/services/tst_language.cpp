#include "TestSupport.h"
#include "platform/Paths.h"
#include "services/LanguageTable.h"
#include "services/RegistryLayer.h"

#include <QHash>

class tst_language : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { ClearLanguageTable(); }

    void parsingRules()
    {
        TestWorld world;
        world.write(QStringLiteral("program/t.txt"),
            "; a comment\r\n"
            "   \r\n"
            "101 Second_instance\r\n"
            "999 last slot\r\n"
            "1e3 out of range\r\n"
            "1000 four digits\r\n"
            "-12 negative\r\n"
            " ;12 indented comment is an entry\r\n"
            "5 one digit\r\n"
            "abc letters go to slot 0\r\n"
            "102\r\n"
            "101 later entry wins\r\n");
        QCOMPARE(ReadLanguageFile(QStringLiteral("C:\\..\\program\\t.txt")), qint16(0));
        QCOMPARE(Lang(101), QStringLiteral("later entry wins"));
        QCOMPARE(Lang(999), QStringLiteral("last slot"));
        QCOMPARE(Lang(1000), QString());
        // Only three characters are read: "1000" is slot 100, its text begins at the "0".
        QCOMPARE(Lang(100), QStringLiteral(" four digits"));
        QCOMPARE(Lang(0), QStringLiteral("letters go to slot 0"));
        QCOMPARE(Lang(5), QStringLiteral("e digit")); // text always starts at the 5th character
        QCOMPARE(Lang(102), QString());
        QCOMPARE(ReadLanguageFile(QStringLiteral("C:\\..\\program\\none.txt")), qint16(1));
        QCOMPARE(ReadLanguageFile(QString()), qint16(1));
    }

    void underscoreIsACarriageReturn()
    {
        TestWorld world;
        world.write(QStringLiteral("program/u.txt"), "101 one_two\r\n");
        ReadLanguageFile(QStringLiteral("C:\\..\\program\\u.txt"));
        QCOMPARE(Lang(101), QStringLiteral("one\rtwo"));
    }

    void noMenuOfALanguageHasTwoEntriesOnOneKey()
    {
        // The menu bar, then each menu and the tray's, by the slots of their captions.
        const QList<QList<int>> menus = { { 206, 213, 220, 224, 226, 229 }, { 207, 208, 209, 210, 211, 212 },
            { 214, 215, 216, 217, 218, 219 }, { 221, 222, 223 }, { 225 }, { 227, 228 }, { 232, 233, 234, 235, 236 },
            { 237, 234, 235, 238, 236, 212 } };
        for (const char* language : { "English", "Polish", "Deutsch" }) {
            ClearLanguageTable();
            const QString file = QStringLiteral(TOLVANE_SOURCE_PROGRAM_DIR "/languages/%1/%1.txt").arg(language);
            QCOMPARE(ReadLanguageFile(platform::ToWindows(file)), qint16(0));
            for (const QList<int>& menu : menus) {
                QHash<QChar, int> keys;
                for (int slot : menu) {
                    const QString caption = Lang(slot);
                    const qsizetype amp = caption.indexOf(QLatin1Char('&'));
                    QVERIFY2(amp >= 0 && amp + 1 < caption.size(), qPrintable(caption));
                    const QChar key = caption.at(amp + 1).toLower();
                    QVERIFY2(!keys.contains(key),
                        qPrintable(QStringLiteral("%1: %2 and %3 share Alt+%4")
                                       .arg(QLatin1String(language), Lang(keys.value(key)), caption, key)));
                    keys.insert(key, slot);
                }
            }
        }
    }

    void valReadsLikeTheRuntime()
    {
        QCOMPARE(Val(QStringLiteral("12a")), 12.0);
        QCOMPARE(Val(QStringLiteral(" 1 2")), 12.0);
        QCOMPARE(Val(QStringLiteral("abc")), 0.0);
        QCOMPARE(Val(QStringLiteral("&HF")), 15.0);
        QCOMPARE(Val(QStringLiteral("1e2")), 100.0);
        QCOMPARE(Val(QStringLiteral("-5")), -5.0);
    }

    void missingCurLangAsksOnceAndFallsBackToEnglish()
    {
        TestWorld world;
        MessageBoxScript boxes;
        LoadLanguage();
        QCOMPARE(boxes.shown.size(), 1);
        QCOMPARE(boxes.shown.first().text, QStringLiteral("Error: Failed loading selected language."));
        QCOMPARE(boxes.shown.first().flags, 16);
        QCOMPARE(GetProgramSetting(QStringLiteral("curLang")), QStringLiteral("English"));
        QVERIFY(Lang(101).startsWith(QStringLiteral("Tolvane is already running.")));
        LoadLanguage();
        QCOMPARE(boxes.shown.size(), 1);
    }

    void shippedFilesNameTheSameSlots()
    {
        TestWorld world;
        QList<QStringList> perLanguage;
        for (const char* lang : { "English", "Polish", "Deutsch" }) {
            ClearLanguageTable();
            const QString name = QLatin1String(lang);
            QCOMPARE(ReadLanguageFile(QStringLiteral("C:\\..\\program\\languages\\%1\\%1.txt").arg(name)), qint16(0));
            QStringList filled;
            for (int slot = 0; slot < 1000; ++slot) {
                if (!Lang(slot).isEmpty())
                    filled << QString::number(slot);
            }
            QVERIFY2(Lang(0).isEmpty(), lang);
            perLanguage << filled;
        }
        QCOMPARE(perLanguage.at(1), perLanguage.at(0));
        QCOMPARE(perLanguage.at(2), perLanguage.at(0));
        QVERIFY(perLanguage.at(0).contains(QStringLiteral("330")));
    }
};

QTEST_GUILESS_MAIN(tst_language)
#include "tst_language.moc"
