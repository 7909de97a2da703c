// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/EntryBoxes.h"

#include "core/LanguageTable.h"
#include "platform/CodePage.h"
#include "widgets/TextBox.h"

#include <QLabel>

void CarryIntoWorkingCopy(QObject* context, const EntryBoxes& boxes, Entry& working)
{
    const std::pair<TextBox*, QByteArray Entry::*> carried[] = {
        { boxes.title, &Entry::title },
        { boxes.password, &Entry::password },
        { boxes.document, &Entry::document },
        { boxes.userName, &Entry::userName },
        { boxes.url, &Entry::url },
        { boxes.passphrase, &Entry::passphrase },
        { boxes.note, &Entry::note },
    };
    for (const auto& [control, field] : carried) {
        QObject::connect(control, &TextBox::LostFocus, context,
            [control, field, &working] { working.*field = Stored(control->Text()); });
    }
}

void SetEntryCaptions(const EntryLabels& labels)
{
    int slot = 241;
    for (QLabel* label :
        { labels.title, labels.userName, labels.passphrase, labels.password, labels.url, labels.document, labels.note })
        label->setText(Lang(slot++));
}

void ShowEntry(const EntryBoxes& boxes, const Entry& entry)
{
    boxes.url->SetText(Shown(entry.url));
    boxes.password->SetText(Shown(entry.password));
    boxes.title->SetText(Shown(entry.title));
    boxes.note->SetText(Shown(entry.note));
    boxes.userName->SetText(Shown(entry.userName));
    boxes.document->SetText(Shown(entry.document));
    boxes.passphrase->SetText(Shown(entry.passphrase));
}
