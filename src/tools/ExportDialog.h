#pragma once
// Copies the vault file of the profile in use, as it is on disk, to a chosen folder under the
// fixed name tolvane_data.tvd. The open vault is not saved first.
#include "services/WindowSlot.h"

class QGroupBox;
class QLabel;
class TextBox;
class QPushButton;

class ExportDialog : public SingleDialog<ExportDialog>
{
    Q_OBJECT
    friend class SingleDialog<ExportDialog>;

public:
    void Form_Load();
    void Command1_Click(); // cancel
    void Command2_Click(); // export
    void Command3_Click(); // browse
    // The folder browser opened at `path`: the chosen folder, or empty.
    QString BrowseForFolder(const QString& path);

    QGroupBox* Frame1;
    QLabel *Label1, *Label2;
    TextBox* txtSelected;
    QPushButton *Command1, *Command2, *Command3;

private:
    explicit ExportDialog(QWidget* owner);
};
