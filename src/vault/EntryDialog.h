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
    // Creating the dialog is its first touch, which runs Form_Load.
    explicit EntryDialog(QWidget* owner);

    void Form_Load();
    void cmdSaveChanges_Click();
    void Command1_Click();
    void Command2_Click();
    void cmdLoad_Click();
    void Image6_Click();

    QLabel *lblViewID, *lblFullName, *lblPhone, *lblAge, *lblAddress, *lblInterests, *lblExtra;
    TextBox *txtDetails, *txtFullName, *txtPhone, *txtAge, *txtAddress, *txtInterests, *txtExtra;
    QPushButton* Command1;
    QPushButton* cmdSaveChanges;
    QPushButton* Command2;
    ClickablePicture* Image6;
    QFrame* fmePicture;
    QLabel* picPicture;
    QPushButton* cmdLoad;

private:
    EntryBoxes Boxes() const;
    // Ends the dialog ("Unload").
    void unload();
};
