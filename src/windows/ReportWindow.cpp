// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/ReportWindow.h"

#include "core/DataRoot.h"
#include "core/LanguageTable.h"
#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Printer.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "widgets/ListBox.h"
#include "widgets/TextBox.h"
#include "windows/SaveFileDialog.h"

#include <QPushButton>

QString ReportText(const QList<Entry>& entries)
{
    const QString crlf = QStringLiteral("\r\n");
    QString text = QStringLiteral("Tolvane") + crlf + Lang(Text::CreatedLabel) + QLatin1Char(' ')
        + platform::TimeOfDayText() + QLatin1Char(' ') + platform::DateText() + crlf + Lang(Text::ReportProfileLabel)
        + QLatin1Char(' ') + CurrentProfile() + crlf + QStringLiteral("===");
    for (int i = 1; i <= entries.size(); ++i) {
        const Entry& e = entries.at(i - 1);
        text += crlf + QString::number(i) + QStringLiteral(") ") + Lang(Text::ReportTitleLabel) + QLatin1Char(' ')
            + Shown(e.title) + QStringLiteral("  ") + Lang(Text::UserNameLabel) + QLatin1Char(' ') + Shown(e.userName)
            + QStringLiteral("  ") + Lang(Text::PasswordLabel) + QLatin1Char(' ') + Shown(e.password)
            + QStringLiteral("  ");
    }
    return text;
}

ReportWindow::ReportWindow(QWidget* owner, const QList<Entry>& shown)
    : SingleDialog(owner)
    , entries(shown)
{
    setObjectName(QStringLiteral("ReportWindow"));
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(QStringLiteral("Raport"));
    resize(Twips(8400), Twips(6000));
    reportBox = Placed(new TextBox(TextBox::MultiLine, this), "reportBox", 120, 120, 8160, 5160);
    reportBox->setLocked(true);
    reportBox->setScrollBars(true, true);
    printButton = Placed(new QPushButton(QStringLiteral("&Drukuj"), this), "printButton", 4260, 5460, 1215, 375);
    saveButton = Placed(new QPushButton(QStringLiteral("&Zapisz..."), this), "saveButton", 5595, 5460, 1215, 375);
    closeButton = Placed(new QPushButton(QStringLiteral("&Anuluj"), this), "closeButton", 6930, 5460, 1215, 375);
    connect(printButton, &QPushButton::clicked, this, &ReportWindow::print);
    connect(saveButton, &QPushButton::clicked, this, &ReportWindow::saveAsText);
    connect(closeButton, &QPushButton::clicked, this, [] { Unload(); });
}

void ReportWindow::load()
{
    setWindowTitle(Lang(Text::ReportTitle));
    printButton->setText(Lang(Text::Print));
    saveButton->setText(Lang(Text::SaveAs));
    closeButton->setText(Lang(Text::Cancel));
    reportBox->editor()->setAccessibleName(Lang(Text::ReportTitle)); // the box is the report
    reportBox->setText(ReportText(entries));
}

void ReportWindow::print()
{
    // A warning, not a question: the printing follows in any case.
    platform::ShowMessage(Lang(Text::ReportWarning), platform::MessageIcon::Critical);
    platform::Printer printer;
    int error = printer.printLine(); // the first line, in the printer's own font, starts the page
    printer.setFontName(QStringLiteral("Arial"));
    printer.setFontSize(8);
    printer.setFontBold(false);
    if (!error)
        error = printer.printLine(platform::DateText() + QLatin1Char(' ') + platform::TimeOfDayText());
    if (!error)
        error = printer.printLine();
    if (!error)
        error = printer.printLine(reportBox->text());
    if (!error)
        error = printer.endDocument();
    if (error)
        platform::ShowMessage(printer.errorDescription(), platform::MessageIcon::Critical);
}

void ReportWindow::saveAsText()
{
    const QString path = ShowSaveDialog(this, QStringLiteral("Text (*.txt)|*.txt"), QString(), QString(), QString());
    if (path.isEmpty())
        return;
    // Nothing is told, whether the file could be written or not.
    platform::WriteFileAtomic(path, platform::ToCodePage(reportBox->text() + QStringLiteral("\r\n")));
}

void ShowReport(QWidget* owner, const QList<Entry>& entries)
{
    ReportWindow::Instance(owner, entries)->exec();
}
