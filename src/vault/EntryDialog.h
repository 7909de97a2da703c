#pragma once
// The dialog that writes a new entry. It works on currentEntry, which its boxes fill as they
// lose the focus, and stores it in entryTable.
#include "vault/EntryBoxes.h"

#include <QDialog>

class ClickablePicture;
class QFrame;
class QLabel;
class QPushButton;
class TextBox;

class EntryDialog : public QDialog
{
    Q_OBJECT
public:
    // Creating the dialog is its first touch, which runs load.
    explicit EntryDialog(QWidget* owner);

    void load();
    void storeNewEntry();
    void showDocumentHint();
    void cancel();
    void loadPicture();
    void openGenerator();

    QLabel *titleCaption, *userNameCaption, *passphraseCaption, *passwordCaption, *urlCaption, *documentCaption,
        *noteCaption;
    TextBox *titleBox, *userNameBox, *passphraseBox, *passwordBox, *urlBox, *documentBox, *noteBox;
    QPushButton* hintButton;
    QPushButton* saveButton;
    QPushButton* cancelButton;
    ClickablePicture* generatorButton;
    QFrame* pictureFrame;
    QLabel* pictureView;
    QPushButton* loadPictureButton;

private:
    EntryBoxes boxes() const;
    // Ends the dialog ("Unload").
    void unload();
};
