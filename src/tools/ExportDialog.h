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
    void load();
    void cancel(); // cancel
    void exportVault(); // export
    void browse(); // browse
    // The folder browser opened at `path`: the chosen folder, or empty.
    QString BrowseForFolder(const QString& path);

    QGroupBox* frame;
    QLabel *profileName, *lead;
    TextBox* targetBox;
    QPushButton *cancelButton, *exportButton, *browseButton;

private:
    explicit ExportDialog(QWidget* owner);
};
