#include "vault/EntryBoxes.h"

#include "platform/CodePage.h"
#include "services/modLanguage.h"
#include "vault/TextBox.h"
#include "vault/modRoster.h"

#include <QLabel>

void CarryIntoCurrentEntry(QObject* context, const EntryBoxes& boxes)
{
    const std::pair<TextBox*, QByteArray EntryRecord::*> carried[] = {
        { boxes.txtDetails, &EntryRecord::title },
        { boxes.txtAge, &EntryRecord::age },
        { boxes.txtInterests, &EntryRecord::interests },
        { boxes.txtFullName, &EntryRecord::name },
        { boxes.txtAddress, &EntryRecord::address },
        { boxes.txtPhone, &EntryRecord::phone },
        { boxes.txtExtra, &EntryRecord::extra },
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

void ShowEntry(const EntryBoxes& boxes, const EntryRecord& entry)
{
    boxes.txtAddress->SetText(Shown(entry.address));
    boxes.txtAge->SetText(Shown(entry.age));
    boxes.txtDetails->SetText(Shown(entry.title));
    boxes.txtExtra->SetText(Shown(entry.extra));
    boxes.txtFullName->SetText(Shown(entry.name));
    boxes.txtInterests->SetText(Shown(entry.interests));
    boxes.txtPhone->SetText(Shown(entry.phone));
}

QString Shown(const QByteArray& field)
{
    return platform::FromCodePage(field);
}

QByteArray Stored(const QString& text)
{
    return platform::ToCodePage(text);
}
