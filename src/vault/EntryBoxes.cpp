#include "vault/EntryBoxes.h"

#include "platform/CodePage.h"
#include "services/LanguageTable.h"
#include "services/TextBox.h"
#include "vault/EntryTable.h"

#include <QLabel>

void CarryIntoCurrentEntry(QObject* context, const EntryBoxes& boxes)
{
    const std::pair<TextBox*, QByteArray Entry::*> carried[] = {
        { boxes.txtDetails, &Entry::title },
        { boxes.txtAge, &Entry::password },
        { boxes.txtInterests, &Entry::document },
        { boxes.txtFullName, &Entry::userName },
        { boxes.txtAddress, &Entry::url },
        { boxes.txtPhone, &Entry::passphrase },
        { boxes.txtExtra, &Entry::note },
    };
    for (const auto& [control, field] : carried) {
        QObject::connect(
            control, &TextBox::LostFocus, context, [control, field] { currentEntry.*field = Stored(control->Text()); });
    }
}

void SetEntryCaptions(const EntryLabels& labels)
{
    int slot = 241;
    for (QLabel* label : { labels.lblViewID, labels.lblFullName, labels.lblPhone, labels.lblAge, labels.lblAddress,
             labels.lblInterests, labels.lblExtra })
        label->setText(Lang(slot++));
}

void ShowEntry(const EntryBoxes& boxes, const Entry& entry)
{
    boxes.txtAddress->SetText(Shown(entry.url));
    boxes.txtAge->SetText(Shown(entry.password));
    boxes.txtDetails->SetText(Shown(entry.title));
    boxes.txtExtra->SetText(Shown(entry.note));
    boxes.txtFullName->SetText(Shown(entry.userName));
    boxes.txtInterests->SetText(Shown(entry.document));
    boxes.txtPhone->SetText(Shown(entry.passphrase));
}

QString Shown(const QByteArray& field)
{
    return platform::FromCodePage(field);
}

QByteArray Stored(const QString& text)
{
    return platform::ToCodePage(text);
}
