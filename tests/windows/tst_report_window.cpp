// SPDX-License-Identifier: GPL-3.0-or-later
// The report as a user opens, reads, prints and saves it.
#include "ProgramRun.h"
#include "platform/CodePage.h"
#include "widgets/SkinnedButton.h"
#include "windows/ReportWindow.h"

#include <QProcess>

namespace {

const auto entry = [](const char* title, const char* userName, const char* password) {
    return Entry { title, password, "C:\\doc.txt", userName, {}, {}, {}, {} };
};

// The vault window over three entries, with the report opened from the Reports menu.
ReportWindow* openReport(ProgramRun& run)
{
    VaultWindow* vault
        = run.startActive({ entry("Bank", "ann", "b4n"), entry("Alpha", "", ""), entry("Mail", "ann@xy", "m41l") });
    ui::menu(vault, { Lang(Text::ReportsMenu), Lang(Text::PasswordListItem) });
    return qobject_cast<ReportWindow*>(ReportWindow::Loaded());
}

const auto reportLines
    = [](QWidget* report) { return ui::text(report, Lang(Text::ReportTitle)).split(QLatin1Char('\n')); };

} // namespace

class tst_report_window : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theListedEntriesAsText()
    {
        ProgramRun run;
        VaultWindow* vault
            = run.startActive({ entry("Bank", "ann", "b4n"), entry("Alpha", "", ""), entry("Mail", "ann@xy", "m41l") });
        // The menu entry, File > Print and both toolbar buttons open it, modally.
        QStringList seen;
        for (int opener = 0; opener < 4; ++opener) {
            ui::onNextModal([&seen](QWidget* report) {
                seen = reportLines(report);
                QCOMPARE(report->windowTitle(), Lang(Text::ReportTitle));
                ui::click(report, Lang(Text::Cancel));
            });
            opener < 2 ? void(ui::menu(vault,
                { Lang(opener ? Text::FileMenu : Text::ReportsMenu),
                    Lang(opener ? Text::PrintItem : Text::PasswordListItem) }))
                       : ui::click<SkinnedButton>(vault, Lang(opener == 2 ? Text::PrintItem : Text::PasswordListItem));
            QCOMPARE(seen.size(), 7);
        }
        QCOMPARE(seen.mid(2, 2), QStringList({ Lang(Text::ReportProfileLabel) + u" Administrator"_s, u"==="_s }));
        QVERIFY(seen[0] == u"Tolvane"_s
            && seen[1].startsWith(Lang(Text::CreatedLabel) + u" "_s + platform::TimeOfDayText().left(2)));
        QCOMPARE(seen[4],
            u"1) %1 Bank  %2 ann  %3 b4n  "_s.arg(
                Lang(Text::ReportTitleLabel), Lang(Text::UserNameLabel), Lang(Text::PasswordLabel)));
        QCOMPARE(seen[5],
            u"2) %1 Alpha  %2   %3   "_s.arg(
                Lang(Text::ReportTitleLabel), Lang(Text::UserNameLabel), Lang(Text::PasswordLabel)));
        // The password's padding zeros end the box's text, as a classic edit box ends it.
        QCOMPARE(seen[6],
            u"3) %1 Mail  %2 ann@xy  %3 m41l"_s.arg(
                Lang(Text::ReportTitleLabel), Lang(Text::UserNameLabel), Lang(Text::PasswordLabel)));

        // Narrowed by a search to one row, the report takes the table's first entry.
        ui::get<QLineEdit>(vault, Lang(Text::SearchLabel))->setText(u"m41l"_s);
        ui::click<SkinnedButton>(vault, Lang(Text::SearchLabel));
        QCOMPARE(ui::rows(vault, Lang(Text::SearchResults)).size(), 1);
        ui::onNextModal([&seen](QWidget* report) {
            seen = reportLines(report);
            ui::click(report, Lang(Text::Cancel));
        });
        ui::click<SkinnedButton>(vault, Lang(Text::PasswordListItem));
        QCOMPARE(seen.size(), 5);
        QVERIFY(seen[4].startsWith(u"1) %1 Bank "_s.arg(Lang(Text::ReportTitleLabel))));
    }

    void printsAfterTheWarningOrTellsTheFailure()
    {
        ProgramRun run;
        ui::onNextModal([&run](QWidget* report) {
            const QString pdf = run.world.path(u"printed.pdf"_s);
            qputenv("TOLVANE_PRINTER_OUTPUT", pdf.toLocal8Bit());
            ui::click(report, Lang(Text::Print));
            QCOMPARE(run.boxes.all(), QStringList(u"16|Tolvane|"_s + Lang(Text::ReportWarning)));
            QProcess text;
            text.start(u"pdftotext"_s, { u"-layout"_s, pdf, u"-"_s });
            QVERIFY(text.waitForFinished(20000));
            const QString printed = QString::fromUtf8(text.readAllStandardOutput());
            QVERIFY2(printed.contains(u"1) %1 Bank"_s.arg(Lang(Text::ReportTitleLabel))), qPrintable(printed));
            QVERIFY(printed.contains(u"ann@xy"_s) && printed.contains(platform::DateText()));

            // A printer that can't take the job: the warning, then what went wrong; the report stays.
            qputenv("TOLVANE_PRINTER_OUTPUT", run.world.path(u"no/such/p.pdf"_s).toLocal8Bit());
            run.boxes.shown.clear();
            ui::click(report, Lang(Text::Print));
            QCOMPARE(run.boxes.shown.size(), 2);
            QVERIFY(run.boxes.last().startsWith(u"16|Tolvane|Printer error"_s));
            QVERIFY(report->isVisible());
            qunsetenv("TOLVANE_PRINTER_OUTPUT");
            ui::click(report, Lang(Text::Cancel));
        });
        QVERIFY(!openReport(run));
    }

    void savesAsTextUnderTheDialogsDefaultExtension()
    {
        ProgramRun run;
        QList<platform::FileDialogCall> calls;
        QStringList typed;
        platform::SetFileDialogBackend([&](const platform::FileDialogCall& call) {
            calls.append(call);
            return typed.isEmpty() ? QString() : typed.takeFirst();
        });
        ui::onNextModal([&](QWidget* report) {
            const QByteArray text = platform::ToCodePage(reportLines(report).join(u"\r\n"_s) + u"\r\n"_s);
            // A name without an extension gets ".pdf"; a new file comes after the question.
            typed = { u"C:\\report"_s };
            ui::click(report, Lang(Text::SaveAs));
            QVERIFY(calls.size() == 1 && calls[0].save && calls[0].flags == 8198);
            QCOMPARE(calls[0].filter + calls[0].defaultExtension, u"Text (*.txt)|*.txtpdf"_s);
            QCOMPARE(
                run.boxes.last(), u"36|Save As|C:\\report.pdf\nThis file does not exist.\nDo you want to create it?"_s);
            QCOMPARE(run.world.read(u"home/report.pdf"_s), text);

            // Replaced only after its own question; No brings the dialog back, in the same
            // folder, and Cancel there leaves the file alone.
            run.world.write(u"home/report.pdf"_s, "older");
            typed = { u"C:\\report"_s };
            run.boxes.answer(platform::MessageAnswer::No);
            ui::click(report, Lang(Text::SaveAs));
            QCOMPARE(calls.value(2).initialFolder + calls.value(2).fileName, u"C:\\report.pdf"_s);
            QCOMPARE(run.boxes.last(), u"52|Save As|C:\\report.pdf already exists.\nDo you want to replace it?"_s);
            QCOMPARE(run.world.read(u"home/report.pdf"_s), QByteArray("older"));
            typed = { u"C:\\report"_s };
            ui::click(report, Lang(Text::SaveAs));
            QCOMPARE(run.world.read(u"home/report.pdf"_s), text);

            // A file that can't be written: nothing is said, nothing is made.
            run.boxes.shown.clear();
            typed = { u"C:\\no\\such\\r.txt"_s };
            ui::click(report, Lang(Text::SaveAs));
            QCOMPARE(run.boxes.shown.size(), 1); // the question to make it, only
            QVERIFY(!QFile::exists(run.world.path(u"home/no"_s)));
            ui::click(report, Lang(Text::Cancel));
        });
        openReport(run);
    }
};

QTEST_MAIN(tst_report_window)
#include "tst_report_window.moc"
