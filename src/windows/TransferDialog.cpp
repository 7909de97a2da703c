// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/TransferDialog.h"

#include "core/DataRoot.h"
#include "core/LanguageTable.h"
#include "platform/Twips.h"
#include "widgets/Accessibility.h"
#include "widgets/TextBox.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

TransferParts BuildTransferFrame(QDialog* dialog, const TransferTexts& texts)
{
    dialog->setWindowModality(Qt::ApplicationModal);
    dialog->setWindowTitle(QString::fromUtf8(texts.caption));
    dialog->setFixedSize(Twips(5880), Twips(2520));
    TransferParts p {};
    p.frame = Placed(new QGroupBox(QString::fromUtf8(texts.frame), dialog), "frame", 120, 60, 5640, 1740);
    p.lead = Placed(new QLabel(QString::fromUtf8(texts.lead), p.frame), "lead", 240, 360, 2700, 285);
    p.profileName = Placed(new QLabel(p.frame), "profileName", 3000, 360, 2520, 285);
    MakeBold(p.profileName);
    p.pathBox = Placed(new TextBox(TextBox::SingleLine, p.frame), "pathBox", 240, 900, 4740, 330);
    p.pathBox->setLocked(true);
    p.pathBox->setText(QString::fromUtf8(texts.path));
    p.browseButton = Placed(new QPushButton(QStringLiteral("..."), p.frame), "browseButton", 5040, 885, 480, 360);
    p.actionButton
        = Placed(new QPushButton(QString::fromUtf8(texts.action), dialog), "actionButton", 3060, 1980, 1335, 375);
    p.actionButton->setDefault(true);
    p.cancelButton = Placed(new QPushButton(QStringLiteral("&Anuluj"), dialog), "cancelButton", 4440, 1980, 1335, 375);
    return p;
}

void SetTransferCaptions(
    const TransferParts& p, QDialog* dialog, Text caption, Text lead, const QString& browseDialogTitle)
{
    p.profileName->setText(CurrentProfile());
    dialog->setWindowTitle(Lang(caption));
    p.frame->setTitle(Lang(caption));
    p.lead->setText(Lang(lead));
    p.actionButton->setText(Lang(caption));
    p.cancelButton->setText(Lang(Text::Cancel));
    p.pathBox->editor()->setAccessibleName(SpokenCaption(p.lead->text()) + QLatin1Char(' ') + p.profileName->text());
    p.browseButton->setAccessibleName(SpokenCaption(browseDialogTitle));
}
