// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The dialog that writes a new entry (the original's frmView). It works on the vault window's
// working copy, which its boxes fill as they lose the focus, and stores it in the vault.
#include "windows/EntryBoxes.h"

#include <QDialog>
#include <QStringList>

#include <functional>

class ClickablePicture;
class Vault;
class QFrame;
class QLabel;
class QPushButton;
class TextBox;

class EntryDialog : public QDialog
{
    Q_OBJECT
public:
    // For a new entry: the boxes empty, the title open to typing. `listedRows` are the rows the
    // vault window shows, against which a title counts as taken; `refillList` puts every title
    // back into that list once the entry is stored.
    EntryDialog(
        QWidget* owner, Vault& vault, Entry& working, const QStringList& listedRows, std::function<void()> refillList);

private:
    void load();
    void storeNewEntry();
    void showDocumentHint();
    void loadPicture();
    void openGenerator();
    EntryBoxes boxes() const;

    Vault& vault;
    Entry& working;
    QStringList listedRows;
    std::function<void()> refillList;

    QLabel *titleCaption, *userNameCaption, *passphraseCaption, *passwordCaption, *urlCaption, *documentCaption,
        *noteCaption;
    TextBox *titleBox, *userNameBox, *passphraseBox, *passwordBox, *urlBox, *documentBox, *noteBox;
    QPushButton* hintButton;
    QPushButton* saveButton;
    QPushButton* cancelButton;
    ClickablePicture* generatorButton;
    // Outside the dialog's client area, where nobody sees it; the picture is read, never shown.
    QFrame* pictureFrame;
    QLabel* pictureView;
    QPushButton* loadPictureButton;
};
