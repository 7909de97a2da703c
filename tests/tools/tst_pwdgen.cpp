// The password generator as a user meets it: the length buttons and their bounds, the three
// alphabets with their gaps, the Use button kept right by the timer, delivery into the password
// box with its question, and the copy.
#include "VaultRun.h"
#include "platform/Clipboard.h"
#include "services/ClickablePicture.h"
#include "tools/PasswordGenerator.h"
#include "tools/PasswordRecipe.h"
#include "vault/EntryDialog.h"

#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

class tst_pwdgen : public QObject
{
    Q_OBJECT

    static void longer(PasswordGenerator& g) { QTest::mousePress(g.longerButton, Qt::LeftButton); }

private Q_SLOTS:
    void lengthButtonsStopOneStepBeforeTheBounds()
    {
        TestWorld world;
        LoadLanguage();
        PasswordGenerator g(nullptr);
        g.show();
        QCOMPARE(g.lengthBox->Text(), QStringLiteral("5"));
        QCOMPARE(g.windowTitle(), Lang(272));
        QVERIFY(g.bothOption->isChecked());

        // From 5 one click reaches 4 and disables "<" at once.
        QTest::mouseClick(g.shorterButton, Qt::LeftButton);
        QCOMPARE(g.lengthBox->Text(), QStringLiteral("4"));
        QVERIFY(!g.shorterButton->isEnabled());
        QTest::mouseClick(g.shorterButton, Qt::LeftButton); // disabled: nothing
        QCOMPARE(g.lengthBox->Text(), QStringLiteral("4"));

        // ">" acts as the button goes down, with any button, and never from the keyboard.
        longer(g);
        QVERIFY(g.shorterButton->isEnabled());
        QCOMPARE(g.lengthBox->Text(), QStringLiteral("5"));
        QTest::mousePress(g.longerButton, Qt::RightButton);
        QCOMPARE(g.lengthBox->Text(), QStringLiteral("6"));
        QTest::mouseRelease(g.longerButton, Qt::RightButton);
        g.longerButton->setFocus();
        QTest::keyClick(g.longerButton, Qt::Key_Space);
        QCOMPARE(g.lengthBox->Text(), QStringLiteral("6"));
        for (int n = 7; n <= 15; ++n)
            longer(g);
        QCOMPARE(g.lengthBox->Text(), QStringLiteral("15"));
        QVERIFY(!g.longerButton->isEnabled());
        longer(g);
        QCOMPARE(g.lengthBox->Text(), QStringLiteral("15"));
        // "<" works from the keyboard and frees ">" again.
        g.shorterButton->setFocus();
        QTest::keyClick(g.shorterButton, Qt::Key_Space);
        QCOMPARE(g.lengthBox->Text(), QStringLiteral("14"));
        QVERIFY(g.longerButton->isEnabled());
    }

    void resultsHaveTheLengthAndTheNarrowAlphabets()
    {
        TestWorld world;
        LoadLanguage();
        PasswordGenerator g(nullptr);
        const QRegularExpression letters(QStringLiteral("^[a-y]+$"));
        const QRegularExpression digits(QStringLiteral("^[0-8]+$"));
        const QRegularExpression both(QStringLiteral("^[a-y0-8]+$"));
        QString seenLetters, seenDigits;
        bool mixed = false;
        for (int length = 4; length <= 15; ++length) {
            g.lengthBox->SetText(QString::number(length));
            for (int run = 0; run < 100; ++run) {
                QTest::mouseClick(g.lettersOption, Qt::LeftButton);
                g.generate();
                QCOMPARE(g.resultBox->Text().size(), length);
                QVERIFY2(letters.match(g.resultBox->Text()).hasMatch(), qPrintable(g.resultBox->Text()));
                seenLetters += g.resultBox->Text();
                QTest::mouseClick(g.digitsOption, Qt::LeftButton);
                g.generate();
                QCOMPARE(g.resultBox->Text().size(), length);
                QVERIFY2(digits.match(g.resultBox->Text()).hasMatch(), qPrintable(g.resultBox->Text()));
                seenDigits += g.resultBox->Text();
                QTest::mouseClick(g.bothOption, Qt::LeftButton);
                g.generate();
                const QString r = g.resultBox->Text();
                QCOMPARE(r.size(), length);
                QVERIFY2(both.match(r).hasMatch(), qPrintable(r));
                mixed |= r.contains(QRegularExpression(QStringLiteral("[0-8]")))
                    && r.contains(QRegularExpression(QStringLiteral("[a-y]")));
            }
        }
        QCOMPARE(g.setName, QStringLiteral("number and letter"));
        // Over 1,200 results of each kind the whole of each narrow alphabet turns up.
        for (QChar c = QLatin1Char('a'); c <= QLatin1Char('y'); c = QChar(c.unicode() + 1))
            QVERIFY2(seenLetters.contains(c), qPrintable(QString(c)));
        for (QChar c = QLatin1Char('0'); c <= QLatin1Char('8'); c = QChar(c.unicode() + 1))
            QVERIFY2(seenDigits.contains(c), qPrintable(QString(c)));
        QVERIFY(mixed);
        // A new option keeps the result until the next press.
        const QString before = g.resultBox->Text();
        QTest::mouseClick(g.digitsOption, Qt::LeftButton);
        QCOMPARE(g.resultBox->Text(), before);
    }

    void theSystemSourceGivesEveryPasswordItsChance()
    {
        // Letters at length 10: 100,000 presses, all different.
        SystemRandomSource source;
        QSet<QString> seen;
        QHash<QChar, qint64> letters;
        for (int i = 0; i < 100000; ++i) {
            const QString p = GeneratePassword(PasswordAlphabet::Letters, 10, source);
            seen.insert(p);
            for (QChar c : p)
                ++letters[c];
        }
        QCOMPARE(seen.size(), 100000);
        // Each of a to y as often as the others: chi-square over 24 degrees of freedom, with a
        // bound a fair source passes but once in millions of runs.
        auto chiSquare = [](const QHash<QChar, qint64>& counts, int kinds) {
            qint64 total = 0;
            for (qint64 n : counts)
                total += n;
            const double expected = double(total) / kinds;
            double sum = 0;
            for (qint64 n : counts)
                sum += (n - expected) * (n - expected) / expected;
            return sum;
        };
        QCOMPARE(letters.size(), 25);
        QVERIFY2(chiSquare(letters, 25) < 80, qPrintable(QString::number(chiSquare(letters, 25))));
        QHash<QChar, qint64> digits;
        for (int i = 0; i < 20000; ++i) {
            for (QChar c : GeneratePassword(PasswordAlphabet::Digits, 10, source))
                ++digits[c];
        }
        QCOMPARE(digits.size(), 9);
        QVERIFY2(chiSquare(digits, 9) < 50, qPrintable(QString::number(chiSquare(digits, 9))));

        // Both kinds at length 12: half digits, and now and then all of one kind (1 in 4,096).
        qint64 digitCount = 0;
        int allLetters = 0;
        int allDigits = 0;
        for (int i = 0; i < 100000; ++i) {
            const QString p = GeneratePassword(PasswordAlphabet::DigitsAndLetters, 12, source);
            const auto n = std::count_if(p.cbegin(), p.cend(), [](QChar c) { return c.isDigit(); });
            digitCount += n;
            allDigits += n == 12 ? 1 : 0;
            allLetters += n == 0 ? 1 : 0;
        }
        QVERIFY2(qAbs(double(digitCount) / 1200000 - 0.5) < 0.003, qPrintable(QString::number(digitCount)));
        QVERIFY(allLetters > 0 && allDigits > 0);
    }

    void useNeedsATargetAndAResultAndAsksBeforeReplacing()
    {
        VaultRun run;
        Entry e;
        e.title = "Mail";
        e.password = "old-pass";
        VaultWindow* main = run.startActive({ e });
        QVERIFY(main);

        // Opened from the menu: no target, Use never enabled, the copy still works.
        VaultRun::onNextModal([](QWidget* w) {
            auto* g = qobject_cast<PasswordGenerator*>(w);
            QVERIFY(g);
            QCOMPARE(g->deliveryMode, QStringLiteral("0"));
            QTest::mouseClick(g->generateButton, Qt::LeftButton);
            g->keepUseButtonInStep();
            QVERIFY(!g->useButton->isEnabled());
            QTest::mouseClick(g->copyButton, Qt::LeftButton);
            QCOMPARE(platform::ClipboardText(), g->resultBox->Text());
            QTest::mouseClick(g->cancelButton, Qt::LeftButton);
        });
        main->generatorAction->trigger();

        // From the image beside the password box: Use comes with the first result; the box is
        // empty, so nothing is asked.
        VaultRun::onNextModal([](QWidget* w) {
            auto* g = qobject_cast<PasswordGenerator*>(w);
            QCOMPARE(g->deliveryMode, QStringLiteral("1"));
            g->keepUseButtonInStep();
            QVERIFY(!g->useButton->isEnabled());
            QTest::mouseClick(g->generateButton, Qt::LeftButton);
            QTRY_VERIFY(g->useButton->isEnabled()); // within a tick of its 10 ms timer
            QTest::mouseClick(g->useButton, Qt::LeftButton);
        });
        QTest::mouseClick(main->generatorButton, Qt::LeftButton);
        QCOMPARE(main->passwordBox->Text().size(), 5);
        QVERIFY(run.boxes.shown.isEmpty());

        // A filled box asks (flags 36); No keeps the dialog and the box, Yes replaces.
        VaultRun::clickRow(main->list, 0);
        QCOMPARE(main->passwordBox->Text(), QStringLiteral("old-pass"));
        run.boxes.answer(platform::IDNO);
        run.boxes.answer(platform::IDYES);
        QString delivered;
        VaultRun::onNextModal([&delivered](QWidget* w) {
            auto* g = qobject_cast<PasswordGenerator*>(w);
            QTest::mouseClick(g->generateButton, Qt::LeftButton);
            g->keepUseButtonInStep();
            QTest::mouseClick(g->useButton, Qt::LeftButton);
            QVERIFY(g->isVisible());
            delivered = g->resultBox->Text();
            QTest::mouseClick(g->useButton, Qt::LeftButton);
        });
        QTest::mouseClick(main->generatorButton, Qt::LeftButton);
        QCOMPARE(run.boxes.shown.size(), 2);
        QCOMPARE(run.boxes.shown[0].text, Lang(271));
        QCOMPARE(run.boxes.shown[0].flags, 36);
        QCOMPARE(main->passwordBox->Text(), delivered);

        // From the new-entry dialog the result goes to that dialog's password box.
        VaultRun::onNextModal([](QWidget* w) {
            auto* view = qobject_cast<EntryDialog*>(w);
            QVERIFY(view);
            VaultRun::onNextModal([](QWidget* w2) {
                auto* g = qobject_cast<PasswordGenerator*>(w2);
                QCOMPARE(g->deliveryMode, QStringLiteral("2"));
                QTest::mouseClick(g->shorterButton, Qt::LeftButton);
                QTest::mouseClick(g->generateButton, Qt::LeftButton);
                g->keepUseButtonInStep();
                QTest::mouseClick(g->useButton, Qt::LeftButton);
            });
            QTest::mouseClick(view->generatorButton, Qt::LeftButton);
            QCOMPARE(view->passwordBox->Text().size(), 4);
            view->reject();
        });
        main->newEntryAction->trigger();
    }
};

QTEST_MAIN(tst_pwdgen)
#include "tst_pwdgen.moc"
