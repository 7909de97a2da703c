#include "tools/ReportWindow.h"

#include "platform/CodePage.h"
#include "platform/Files.h"
#include "platform/MessageBox.h"
#include "platform/Printer.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "services/LanguageTable.h"
#include "services/ListBox.h"
#include "services/TextBox.h"
#include "storage/DataRoot.h"
#include "tools/SaveFileDialog.h"
#include "vault/EntryBoxes.h"
#include "vault/EntryTable.h"
#include "vault/VaultWindow.h"

#include <QPushButton>

QString ReportText(int rows)
{
    const QString crlf = QStringLiteral("\r\n");
    QString text = QStringLiteral("Tolvane") + crlf + Lang(284) + QLatin1Char(' ') + platform::TimeOfDayText()
        + QLatin1Char(' ') + platform::DateText() + crlf + Lang(285) + QLatin1Char(' ') + CurrentProfile() + crlf
        + QStringLiteral("===");
    for (int i = 1; i <= rows && entryTable.Has(i); ++i) {
        const Entry& e = entryTable[i];
        text += crlf + QString::number(i) + QStringLiteral(") ") + Lang(286) + QLatin1Char(' ') + Shown(e.title)
            + QStringLiteral("  ") + Lang(242) + QLatin1Char(' ') + Shown(e.userName) + QStringLiteral("  ") + Lang(244)
            + QLatin1Char(' ') + Shown(e.password) + QStringLiteral("  ");
    }
    return text;
}

ReportWindow::ReportWindow(QWidget* owner)
    : SingleDialog(owner)
{
    setObjectName(QStringLiteral("ReportWindow"));
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(QStringLiteral("Raport"));
    resize(Twips(8400), Twips(6000));
    TxtLaporan = Placed(new TextBox(TextBox::MultiLine, this), "TxtLaporan", 120, 120, 8160, 5160);
    TxtLaporan->SetLocked(true);
    TxtLaporan->SetScrollBars(true, true);
    Command1 = Placed(new QPushButton(QStringLiteral("&Drukuj"), this), "Command1", 4260, 5460, 1215, 375);
    Command2 = Placed(new QPushButton(QStringLiteral("&Zapisz..."), this), "Command2", 5595, 5460, 1215, 375);
    Command4 = Placed(new QPushButton(QStringLiteral("&Anuluj"), this), "Command4", 6930, 5460, 1215, 375);
    connect(Command1, &QPushButton::clicked, this, &ReportWindow::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &ReportWindow::Command2_Click);
    connect(Command4, &QPushButton::clicked, this, &ReportWindow::Command4_Click);
}

void ReportWindow::Form_Load()
{
    setWindowTitle(Lang(280));
    Command1->setText(Lang(281));
    Command2->setText(Lang(282));
    Command4->setText(Lang(147));
    TxtLaporan->Editor()->setAccessibleName(Lang(280)); // the box is the report
    const VaultWindow* main = VaultWindow::Loaded();
    TxtLaporan->SetText(ReportText(main ? main->ListedRows() : 0));
}

void ReportWindow::Command1_Click()
{
    // A warning, not a question: the printing follows in any case.
    platform::MsgBox(Lang(283), 16);
    platform::Printer printer;
    int error = printer.Print(); // the first line, in the printer's own font, starts the page
    printer.SetFontName(QStringLiteral("Arial"));
    printer.SetFontSize(8);
    printer.SetFontBold(false);
    if (!error)
        error = printer.Print(platform::DateText() + QLatin1Char(' ') + platform::TimeOfDayText());
    if (!error)
        error = printer.Print();
    if (!error)
        error = printer.Print(TxtLaporan->Text());
    if (!error)
        error = printer.EndDoc();
    if (error)
        platform::MsgBox(printer.Description(), 16);
}

void ReportWindow::Command2_Click()
{
    const QString path = ShowSaveDialog(this, QStringLiteral("Text (*.txt)|*.txt"), QString(), QString(), QString());
    if (path.isEmpty())
        return;
    // Nothing is told, whether the file could be written or not.
    platform::WriteFileAtomic(path, platform::ToCodePage(TxtLaporan->Text() + QStringLiteral("\r\n")));
}

void ReportWindow::Command4_Click()
{
    Unload();
}

void ShowReport(QWidget* owner)
{
    ReportWindow::Instance(owner)->exec();
}
