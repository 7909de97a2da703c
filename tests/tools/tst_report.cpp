// The report: its text for a full and a narrowed list, printing through the printer layer into a
// PDF read back as text, a printer that fails, and saving under the dialog's default extension.
#include "VaultRun.h"
#include "platform/CodePage.h"
#include "platform/Dialogs.h"
#include "tools/ReportWindow.h"

#include <QAction>
#include <QPrinterInfo>
#include <QProcess>
#include <QPushButton>

class tst_report : public QObject
{
    Q_OBJECT

    static Entry entry(const char* title, const char* name, const char* password)
    {
        Entry e;
        e.title = title;
        e.userName = name;
        e.password = password;
        e.document = "C:\\doc.txt";
        return e;
    }

    // The report window over a vault of three entries, opened from the menu.
    static ReportWindow* openReport(VaultRun& run, VaultWindow*& main)
    {
        run.writeVault({ entry("Bank", "ann", "b4n"), entry("Alpha", "", ""), entry("Mail", "ann@xy", "m41l") });
        main = run.start();
        // The menu, the print entry and both toolbar buttons open it modally.
        int opened = 0;
        for (int i = 0; i < 4; ++i) {
            VaultRun::onNextModal([&opened](QWidget* w) {
                opened += qobject_cast<ReportWindow*>(w) && w->isModal();
                ReportWindow::Unload();
            });
            if (i == 0)
                main->reportAction->trigger();
            else if (i == 1)
                main->printAction->trigger();
            else
                QTest::mouseClick(i == 2 ? main->printButton : main->reportButton, Qt::LeftButton);
        }
        if (opened != 4)
            return nullptr;
        ReportWindow* report = ReportWindow::Instance(main);
        report->show();
        return report;
    }

    static QStringList lines(const QString& text) { return text.split(QStringLiteral("\r\n")); }

private Q_SLOTS:
    void textCountsTheListAndTakesTheTable()
    {
        VaultRun run;
        VaultWindow* main = nullptr;
        ReportWindow* report = openReport(run, main);
        QVERIFY(report);
        const QStringList full = lines(report->reportBox->Text());
        QCOMPARE(full.size(), 7);
        QCOMPARE(full[0], QStringLiteral("Tolvane"));
        QVERIFY(full[1].startsWith(Lang(284) + QLatin1Char(' ') + platform::TimeOfDayText().left(2)));
        QCOMPARE(full[2], Lang(285) + QStringLiteral(" Administrator"));
        QCOMPARE(full[3], QStringLiteral("==="));
        QCOMPARE(full[4], QStringLiteral("1) %1 Bank  %2 ann  %3 b4n  ").arg(Lang(286), Lang(242), Lang(244)));
        QCOMPARE(full[5], QStringLiteral("2) %1 Alpha  %2   %3   ").arg(Lang(286), Lang(242), Lang(244)));
        // The codec keeps its padding as zeros, and the box's text ends at the first: "m41l"
        // (four characters) ends the report there, as the classic edit box ends it.
        QCOMPARE(full[6], QStringLiteral("3) %1 Mail  %2 ann@xy  %3 m41l").arg(Lang(286), Lang(242), Lang(244)));
        QVERIFY(ReportText(3).endsWith(QStringLiteral("m41l") + QChar(0) + QChar(0) + QStringLiteral("  ")));
        QVERIFY(!report->reportBox->Text().contains(QStringLiteral("doc.txt")));
        report->closeButton->click();
        QVERIFY(!ReportWindow::Loaded());

        // A search for "mail" lists one row: the report shows one line, the table's first.
        main->searchBox->SetText(QStringLiteral("m41l"));
        main->search();
        QCOMPARE(main->list->ListCount(), 1);
        QStringList narrowed = lines(ReportText(main->list->ListCount()));
        QCOMPARE(narrowed.size(), 5);
        QVERIFY(narrowed[4].startsWith(QStringLiteral("1) %1 Bank ").arg(Lang(286))));
        QCOMPARE(lines(ReportText(0)).size(), 4);
    }

    void printsAfterTheWarningOrTellsTheFailure()
    {
        VaultRun run;
        VaultWindow* main = nullptr;
        ReportWindow* report = openReport(run, main);
        QVERIFY(report);
        const QString pdf = run.world.path(QStringLiteral("printed.pdf"));
        qputenv("TOLVANE_PRINTER_OUTPUT", pdf.toLocal8Bit());
        report->printButton->click();
        QCOMPARE(run.boxes.shown.size(), 1); // the warning, and nothing after it
        QCOMPARE(run.boxes.shown[0].text, Lang(283));
        QCOMPARE(run.boxes.shown[0].flags, 16);
        QProcess text;
        text.start(QStringLiteral("pdftotext"), { QStringLiteral("-layout"), pdf, QStringLiteral("-") });
        QVERIFY(text.waitForFinished(20000));
        const QString printed = QString::fromUtf8(text.readAllStandardOutput());
        QVERIFY2(printed.contains(QStringLiteral("1) %1 Bank").arg(Lang(286))), qPrintable(printed));
        QVERIFY(printed.contains(QStringLiteral("b4n")) && printed.contains(QStringLiteral("ann@xy")));
        QVERIFY(printed.contains(platform::DateText()));

        // A printer that can't take the job: the warning first, then the description; the
        // report stays.
        qputenv("TOLVANE_PRINTER_OUTPUT", run.world.path(QStringLiteral("no/such/folder/p.pdf")).toLocal8Bit());
        run.boxes.shown.clear();
        report->printButton->click();
        QCOMPARE(run.boxes.shown.size(), 2);
        QCOMPARE(run.boxes.shown[0].text, Lang(283));
        QVERIFY(run.boxes.shown[1].text.startsWith(QStringLiteral("Printer error")));
        QCOMPARE(run.boxes.shown[1].flags, 16);
        QCOMPARE(ReportWindow::Loaded(), report);
        qunsetenv("TOLVANE_PRINTER_OUTPUT");
        // No printer set up (as on CI): told so. A machine with a default printer is not made
        // to print by a test.
        if (QPrinterInfo::defaultPrinter().isNull()) {
            run.boxes.shown.clear();
            report->printButton->click();
            QCOMPARE(run.boxes.shown.size(), 2);
            QCOMPARE(run.boxes.shown[1].text,
                QStringLiteral("Printer error: no default printer is set up on this computer."));
        }
        report->closeButton->click();
    }

    void savesPlainTextUnderTheDefaultExtensionAfterTheDialogsQuestions()
    {
        VaultRun run;
        VaultWindow* main = nullptr;
        ReportWindow* report = openReport(run, main);
        QVERIFY(report);
        QList<platform::FileDialogCall> calls;
        QStringList typed;
        platform::SetFileDialogBackend([&](const platform::FileDialogCall& call) {
            calls.append(call);
            return typed.isEmpty() ? QString() : typed.takeFirst();
        });
        const QByteArray text = platform::ToCodePage(report->reportBox->Text() + QStringLiteral("\r\n"));
        auto boxes = [&run] {
            QStringList seen;
            for (const auto& box : run.boxes.shown)
                seen << QStringLiteral("%1|%2|%3").arg(box.flags).arg(box.title, box.text);
            run.boxes.shown.clear();
            return seen;
        };

        // A name without an extension gets ".pdf", and a new file is made only after the question.
        typed = { QStringLiteral("C:\\report") };
        run.boxes.answer(platform::IDYES);
        report->saveButton->click();
        QCOMPARE(calls.size(), 1);
        QVERIFY(calls[0].save);
        QCOMPARE(calls[0].filter, QStringLiteral("Text (*.txt)|*.txt"));
        QCOMPARE(calls[0].defaultExtension, QStringLiteral("pdf"));
        QCOMPARE(calls[0].flags, 8198);
        QCOMPARE(boxes(),
            QStringList {
                QStringLiteral("36|Save As|C:\\report.pdf\nThis file does not exist.\nDo you want to create it?") });
        QCOMPARE(run.world.read(QStringLiteral("home/report.pdf")), text);

        // The same name again: report.pdf exists and is replaced only after its own question; No
        // shows the dialog again, and Cancel there leaves the file as it was.
        run.world.write(QStringLiteral("home/report.pdf"), "older");
        typed = { QStringLiteral("C:\\report") };
        run.boxes.answer(platform::IDNO);
        report->saveButton->click();
        QCOMPARE(calls.size(), 3);
        QCOMPARE(calls[2].fileName, QStringLiteral("report.pdf"));
        QCOMPARE(calls[2].initialFolder, QStringLiteral("C:\\"));
        QCOMPARE(boxes(),
            QStringList { QStringLiteral("52|Save As|C:\\report.pdf already exists.\nDo you want to replace it?") });
        QCOMPARE(run.world.read(QStringLiteral("home/report.pdf")), QByteArray("older"));
        typed = { QStringLiteral("C:\\report") };
        run.boxes.answer(platform::IDYES);
        report->saveButton->click();
        QCOMPARE(boxes().size(), 1);
        QCOMPARE(run.world.read(QStringLiteral("home/report.pdf")), text);

        // A new name declined: the dialog comes again; a file that can't be written: nothing said.
        typed = { QStringLiteral("C:\\r.txt"), QStringLiteral("C:\\no\\such\\r.txt") };
        run.boxes.answer(platform::IDNO);
        run.boxes.answer(platform::IDYES);
        report->saveButton->click();
        QCOMPARE(boxes().size(), 2);
        QVERIFY(!QFile::exists(run.world.path(QStringLiteral("home/r.txt"))));
        platform::SetFileDialogBackend({});
        report->closeButton->click();
    }
};

QTEST_MAIN(tst_report)
#include "tst_report.moc"
