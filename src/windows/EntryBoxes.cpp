// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/EntryBoxes.h"

#include "core/LanguageTable.h"
#include "platform/CodePage.h"
#include "platform/MessageBox.h"
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
        QObject::connect(control, &TextBox::focusLost, context,
            [control, field, &working] { working.*field = Stored(control->text()); });
    }
}

void SetEntryCaptions(const EntryLabels& labels)
{
    const std::pair<QLabel*, Text> captions[] = { { labels.title, Text::TitleLabel },
        { labels.userName, Text::UserNameLabel }, { labels.passphrase, Text::PassphraseLabel },
        { labels.password, Text::PasswordLabel }, { labels.url, Text::UrlLabel },
        { labels.document, Text::DocumentLabel }, { labels.note, Text::NoteLabel } };
    for (const auto& [label, caption] : captions)
        label->setText(Lang(caption));
}

void ShowEntry(const EntryBoxes& boxes, const Entry& entry)
{
    boxes.url->setText(Shown(entry.url));
    boxes.password->setText(Shown(entry.password));
    boxes.title->setText(Shown(entry.title));
    boxes.note->setText(Shown(entry.note));
    boxes.userName->setText(Shown(entry.userName));
    boxes.document->setText(Shown(entry.document));
    boxes.passphrase->setText(Shown(entry.passphrase));
}

bool StoreAndTell(Vault& vault, const Entry& entry)
{
    if (vault.storeWouldOverfill(entry)) {
        platform::ShowMessage(Lang(Text::VaultTooLarge), platform::MessageIcon::Critical);
        return false;
    }
    vault.store(entry);
    platform::ShowMessage(Lang(Text::EntrySaved), platform::MessageIcon::Information);
    return true;
}
