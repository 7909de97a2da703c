#pragma once
// Copies a chosen file over the vault file of the profile in use, unread, and restarts the
// program with that profile preselected, so that the open vault is not written back over it.
#include "services/WindowSlot.h"

class QGroupBox;
class QLabel;
class TextBox;
class QPushButton;

class ImportDialog : public SingleDialog<ImportDialog>
{
    Q_OBJECT
    friend class SingleDialog<ImportDialog>;

public:
    void Form_Load();
    void Command1_Click(); // import
    void Command3_Click(); // choose the file
    void Command4_Click(); // cancel

    QGroupBox* Frame1;
    QLabel *Label1, *Label2;
    TextBox* txtZipFName;
    QPushButton *Command1, *Command3, *Command4;

private:
    explicit ImportDialog(QWidget* owner);
};
