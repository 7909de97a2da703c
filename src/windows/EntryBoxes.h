// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The seven boxes of an entry, as both the vault window and the new-entry dialog have them.
#include "core/Entry.h"
#include "core/Vault.h"

class QLabel;
class QObject;
class TextBox;

struct EntryBoxes
{
    TextBox* title;
    TextBox* userName;
    TextBox* passphrase;
    TextBox* password;
    TextBox* url;
    TextBox* document;
    TextBox* note;
};

// The captions of the seven boxes: title, user name, passphrase, password, URL, document, note.
struct EntryLabels
{
    QLabel* title;
    QLabel* userName;
    QLabel* passphrase;
    QLabel* password;
    QLabel* url;
    QLabel* document;
    QLabel* note;
};

// Sets their captions in the chosen language.
void SetEntryCaptions(const EntryLabels& labels);

// Each box carries its whole text into its field of the working copy when it loses the focus.
// The vault window and its new-entry dialog share one working copy, the vault window's.
void CarryIntoWorkingCopy(QObject* context, const EntryBoxes& boxes, Entry& working);

// Both save commands' last step: an entry that would take the vault past what a save can write
// is refused with its message; any other is stored, and "saved" is said. True when stored.
bool StoreAndTell(Vault& vault, const Entry& entry);

// Copies the record into the boxes: address, age, title, note, user name, document, phrase.
void ShowEntry(const EntryBoxes& boxes, const Entry& entry);
