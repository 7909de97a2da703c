#include "tools/TransferFrame.h"

#include "platform/Twips.h"
#include "services/Accessibility.h"
#include "services/TextBox.h"

TransferFrame MakeTransferFrame(QWidget* window, const char* pathName, const char* actionName, const char* cancelName,
    const TransferFrameTexts& texts)
{
    window->setWindowModality(Qt::ApplicationModal);
    window->setWindowTitle(QString::fromUtf8(texts.caption));
    window->setFixedSize(Twips(5880), Twips(2520));
    TransferFrame f {};
    f.frame = Placed(new QGroupBox(window), "Frame1", 120, 60, 5640, 1740);
    f.lead = Placed(new QLabel(f.frame), "Label2", 240, 360, 2700, 285);
    f.profile = Placed(new QLabel(f.frame), "Label1", 3000, 360, 2520, 285);
    MakeBold(f.profile);
    f.path = Placed(new TextBox(TextBox::SingleLine, f.frame), pathName, 240, 900, 4740, 330);
    f.path->SetLocked(true);
    f.browse = Placed(new QPushButton(QStringLiteral("..."), f.frame), "Command3", 5040, 885, 480, 360);
    f.action = Placed(new QPushButton(window), actionName, 3060, 1980, 1335, 375);
    f.action->setDefault(true);
    f.cancel = Placed(new QPushButton(window), cancelName, 4440, 1980, 1335, 375);
    f.frame->setTitle(QString::fromUtf8(texts.frame));
    f.lead->setText(QString::fromUtf8(texts.lead));
    f.path->SetText(QString::fromUtf8(texts.path));
    f.action->setText(QString::fromUtf8(texts.action));
    f.cancel->setText(QStringLiteral("&Anuluj"));
    return f;
}

void NameTransferFrame(
    TextBox* path, const QLabel* lead, const QLabel* profile, QPushButton* browse, const QString& browseDialogTitle)
{
    path->Editor()->setAccessibleName(SpokenCaption(lead->text()) + QLatin1Char(' ') + profile->text());
    browse->setAccessibleName(SpokenCaption(browseDialogTitle));
}
