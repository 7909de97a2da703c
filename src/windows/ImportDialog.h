// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Import (the original's frmImport): a chosen file copied over the profile's list.dat without a
// look at it, then a restart that opens it.
#include "windows/TransferDialog.h"

class ImportDialog : public TransferDialog<ImportDialog>
{
    Q_OBJECT
    friend class SingleDialog<ImportDialog>;

private:
    explicit ImportDialog(QWidget* owner);
    void load();
    void chooseFile();
    void importVault();
};
