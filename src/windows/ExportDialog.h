// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Export (the original's frmExport): the profile's list.dat, as the last save left it, copied
// to tolvane_data.tvd in a folder the user chooses.
#include "windows/TransferDialog.h"

class ExportDialog : public TransferDialog<ExportDialog>
{
    Q_OBJECT
    friend class SingleDialog<ExportDialog>;

private:
    explicit ExportDialog(QWidget* owner);
    void load();
    void browse();
    void exportVault();
};
