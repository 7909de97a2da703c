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
    void load();
    void importVault(); // import
    void chooseFile(); // choose the file
    void cancel(); // cancel

    QGroupBox* frame;
    QLabel *profileName, *lead;
    TextBox* sourceBox;
    QPushButton *importButton, *chooseButton, *cancelButton;

private:
    explicit ImportDialog(QWidget* owner);
};
