// SPDX-License-Identifier: GPL-3.0-or-later
// The password generator as a user meets it, and the source behind its results.
#include "ProgramRun.h"
#include "core/PasswordRecipe.h"
#include "platform/Clipboard.h"
#include "widgets/ClickablePicture.h"
#include "windows/PasswordGenerator.h"

#include <QPushButton>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <numeric>

namespace {

const auto length = [](QWidget* g) { return ui::get<QLineEdit>(g, Lang(Text::Characters))->text(); };
const auto result = [](QWidget* g) { return ui::text(g, Lang(Text::GeneratedPasswordLabel)); };
const auto enabled = [](QWidget* g, const QString& button) { return ui::get<QPushButton>(g, button)->isEnabled(); };

// Chi-square of counts that a fair source makes equal.
double chiSquare(const QHash<QChar, qint64>& counts)
{
    const double expected = double(std::accumulate(counts.cbegin(), counts.cend(), qint64(0))) / counts.size();
    double sum = 0;
    for (qint64 n : counts)
        sum += (n - expected) * (n - expected) / expected;
    return sum;
}

} // namespace

class tst_password_generator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lengthAndAlphabets()
    {
        ProgramRun run;
        PasswordGenerator g(nullptr, nullptr);
        ui::activate(&g);
        QCOMPARE(length(&g), u"5"_s);
        // "<" stops at 4 and greys at once; ">" acts as any mouse button goes down, and stops at 15.
        ui::click(&g, u"<"_s);
        QCOMPARE(length(&g), u"4"_s);
        QVERIFY(!enabled(&g, u"<"_s));
        auto* longer = ui::get<QPushButton>(&g, u">"_s);
        QTest::mousePress(longer, Qt::RightButton);
        QTest::mouseRelease(longer, Qt::RightButton);
        QCOMPARE(length(&g), u"5"_s);
        // A double click counts twice on either: its second press comes as a double click.
        for (const auto& [button, after] : { std::pair { u">"_s, u"7"_s }, std::pair { u"<"_s, u"5"_s } }) {
            auto* b = ui::get<QPushButton>(&g, button);
            QTest::mouseClick(b, Qt::LeftButton);
            QTest::mouseDClick(b, Qt::LeftButton);
            QTest::mouseRelease(b, Qt::LeftButton);
            QCOMPARE(length(&g), after);
        }
        for (int n = 0; n < 12; ++n)
            QTest::mousePress(longer, Qt::LeftButton);
        QCOMPARE(length(&g), u"15"_s);
        QVERIFY(!longer->isEnabled() && enabled(&g, u"<"_s));

        // Each length from 15 down to 4, each alphabet: a to y, 0 to 8, every character of which turns up.
        const QRegularExpression shapes[] = { QRegularExpression(u"^[a-y]+$"_s), QRegularExpression(u"^[0-8]+$"_s),
            QRegularExpression(u"^[a-y0-8]+$"_s) };
        const Text kinds[] = { Text::Letters, Text::Digits, Text::DigitsAndLetters };
        QString seen[3];
        for (int n = 15; n >= 4; --n) {
            for (int kind = 0; kind < 3; ++kind) {
                ui::click(&g, Lang(kinds[kind]));
                for (int press = 0; press < 30; ++press) {
                    ui::click(&g, Lang(Text::Generate));
                    QCOMPARE(result(&g).size(), n);
                    QVERIFY2(shapes[kind].match(result(&g)).hasMatch(), qPrintable(result(&g)));
                    seen[kind] += result(&g);
                }
            }
            ui::click(&g, u"<"_s);
        }
        for (const auto& [kind, letters] : { std::pair { 0, 25 }, { 1, 9 }, { 2, 34 } })
            QCOMPARE(QSet<QChar>(seen[kind].cbegin(), seen[kind].cend()).size(), letters);
        // A new choice counts from the next press; the copy takes the result as it stands.
        const QString before = result(&g);
        ui::click(&g, Lang(Text::Digits));
        QCOMPARE(result(&g), before);
        ui::click<ClickablePicture>(&g, ActionOnBox(Lang(Text::CopyItem), Lang(Text::GeneratedPasswordLabel)));
        QCOMPARE(platform::ClipboardText(), before);
        g.keepUseButtonInStep(); // opened without a box to fill: Use never comes
        QVERIFY(!enabled(&g, Lang(Text::Use)));
    }

    void theSystemSourceIsFair()
    {
        SystemRandomSource source;
        QSet<QString> seen;
        QHash<QChar, qint64> letters, digits;
        for (int i = 0; i < 100000; ++i) {
            const QString p = GeneratePassword(PasswordAlphabet::Letters, 10, source);
            seen.insert(p);
            for (QChar c : p)
                ++letters[c];
        }
        QCOMPARE(seen.size(), 100000);
        for (int i = 0; i < 20000; ++i) {
            for (QChar c : GeneratePassword(PasswordAlphabet::Digits, 10, source))
                ++digits[c];
        }
        // Bounds a fair source passes all but once in millions of runs (24 and 8 degrees).
        QVERIFY2(chiSquare(letters) < 80, qPrintable(QString::number(chiSquare(letters))));
        QVERIFY2(chiSquare(digits) < 50, qPrintable(QString::number(chiSquare(digits))));

        // Both kinds: a coin for each character, so half digits, and now and then all of one.
        qint64 digitCount = 0;
        int allOfOneKind = 0;
        for (int i = 0; i < 100000; ++i) {
            const QString p = GeneratePassword(PasswordAlphabet::DigitsAndLetters, 12, source);
            const auto n = std::count_if(p.cbegin(), p.cend(), [](QChar c) { return c.isDigit(); });
            digitCount += n;
            allOfOneKind += n == 0 || n == 12 ? 1 : 0;
        }
        QVERIFY2(qAbs(double(digitCount) / 1200000 - 0.5) < 0.003, qPrintable(QString::number(digitCount)));
        QVERIFY(allOfOneKind > 0);
    }

    void useFillsThePasswordBoxThatOpenedIt()
    {
        ProgramRun run;
        VaultWindow* vault = run.startActive({ Entry { "Mail", "old-pass", {}, {}, {}, {}, {}, {} } });
        QVERIFY(vault);
        auto generate = [](QWidget* g) {
            ui::click(g, Lang(Text::Generate));
            static_cast<PasswordGenerator*>(g)->keepUseButtonInStep();
        };

        // The box is empty (nothing selected): Use comes with the first result, nothing asked.
        ui::onNextModal([&](QWidget* g) {
            static_cast<PasswordGenerator*>(g)->keepUseButtonInStep();
            QVERIFY(!enabled(g, Lang(Text::Use)));
            generate(g);
            ui::click(g, Lang(Text::Use));
        });
        ui::click<ClickablePicture>(vault, Lang(Text::GeneratorItem));
        QCOMPARE(ui::text(vault, Lang(Text::PasswordLabel)).size(), 5);
        QVERIFY(run.boxes.shown.isEmpty());

        // A filled box asks; No keeps the generator up and the box as it was, Yes replaces.
        ui::clickRow(vault, Lang(Text::PasswordList), 0);
        run.boxes.answer(platform::MessageAnswer::No);
        run.boxes.answer(platform::MessageAnswer::Yes);
        QString delivered;
        ui::onNextModal([&](QWidget* g) {
            generate(g);
            ui::click(g, Lang(Text::Use));
            QVERIFY(g->isVisible());
            QCOMPARE(ui::text(vault, Lang(Text::PasswordLabel)), u"old-pass"_s);
            delivered = result(g);
            ui::click(g, Lang(Text::Use));
        });
        ui::click<ClickablePicture>(vault, Lang(Text::GeneratorItem));
        QCOMPARE(run.boxes.all(), QStringList(2, u"36|Tolvane|"_s + Lang(Text::ReplacePassword)));
        QCOMPARE(ui::text(vault, Lang(Text::PasswordLabel)), delivered);
    }
};

QTEST_MAIN(tst_password_generator)
#include "tst_password_generator.moc"
