// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestWorld.h"
#include "core/LanguageTable.h"
#include "core/RegistryLayer.h"
#include "platform/GuiMessageBox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

using namespace Qt::StringLiterals;

class tst_language_table : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void filesCurLangAndTheShippedLanguages()
    {
        TestWorld world;
        MessageBoxScript boxes; // no curLang: asked once, and English from then on
        LoadLanguage();
        LoadLanguage();
        QCOMPARE(boxes.all(), QStringList { u"16|Tolvane|Error: Failed loading selected language."_s });
        QCOMPARE(GetProgramSetting(u"curLang"_s), u"English"_s);
        QVERIFY(Lang(Text::AlreadyRunning).startsWith(u"Tolvane is already running."_s));

        world.write(u"program/t.txt"_s,
            "; a comment\r\n   \r\n101 Second_instance\r\n999 last slot\r\n1e3 out of range\r\n1000 four digits\r\n"
            "-12 negative\r\n ;12 indented comment is an entry\r\n5 one digit\r\nabc letters go to slot 0\r\n102\r\n"
            "101 later entry wins\r\n103 one_two\r\n");
        QCOMPARE(ReadLanguageFile(u"C:\\..\\program\\t.txt"_s), qint16(0));
        // A slot is 3 characters ("1000": 100, " four..."), a text starts at the 5th, "_" is a CR.
        const std::pair<int, QString> expected[] = { { 101, u"later entry wins"_s }, { 999, u"last slot"_s },
            { 1000, QString() }, { 100, u" four digits"_s }, { 0, u"letters go to slot 0"_s }, { 5, u"e digit"_s },
            { 102, QString() }, { 103, u"one\rtwo"_s } };
        for (const auto& [slot, text] : expected)
            QCOMPARE(Lang(static_cast<Text>(slot)), text); // any number fits, named or not
        QCOMPARE(ReadLanguageFile(u"C:\\..\\program\\none.txt"_s) + ReadLanguageFile(QString()), 2);

        // Each shipped language fills English's slots.
        QList<int> english;
        for (const QString& language : { u"English"_s, u"Polish"_s, u"Deutsch"_s }) {
            ClearLanguageTable();
            QCOMPARE(ReadLanguageFile(u"C:\\..\\program\\languages\\%1\\%1.txt"_s.arg(language)), qint16(0));
            QList<int> filled;
            for (int slot = 0; slot < 1000; ++slot)
                if (!Lang(static_cast<Text>(slot)).isEmpty())
                    filled << slot;
            QCOMPARE(filled, english.isEmpty() ? (english = filled) : english);
            QVERIFY(!filled.contains(0) && filled.contains(330));
        }
    }

    void theToolkitsButtonsSpeakTheChosenLanguage()
    {
        TestWorld world;
        const std::pair<QString, QString> languages[]
            = { { u"Polish"_s, u"Nie Tak"_s }, { u"Deutsch"_s, u"Ja Nein"_s }, { u"English"_s, u"No Yes"_s } };
        for (const auto& [language, buttons] : languages) {
            SaveProgramSetting(u"curLang"_s, language);
            LoadLanguage();
            QStringList seen; // the buttons of the box on screen
            QTimer::singleShot(0, [&seen] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                for (QAbstractButton* b : box->buttons())
                    seen << b->text().remove(u'&');
                box->button(QMessageBox::No)->click();
            });
            platform::ShowMessageBoxWindow({ u"?"_s, 4, u"Tolvane"_s });
            seen.sort();
            QCOMPARE(seen.join(u' '), buttons);
        }
    }
};

QTEST_MAIN(tst_language_table)
#include "tst_language_table.moc"
