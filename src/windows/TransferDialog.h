// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What export and import share (the original's frmExport and frmImport have one look): a frame
// with the profile's name, a path the user can't type in and a "..." beside it, and two
// buttons below: the one of the dialog's action and Cancel.
#include "core/Texts.h"
#include "widgets/WindowSlot.h"

#include <QPushButton>

class QGroupBox;
class QLabel;
class TextBox;

// The design-time texts (UTF-8) of the frame.
struct TransferTexts
{
    const char* caption;
    const char* frame;
    const char* lead;
    const char* path;
    const char* action;
};

// The parts of the frame, built once for both dialogs.
struct TransferParts
{
    QGroupBox* frame;
    QLabel* lead;
    QLabel* profileName;
    TextBox* pathBox;
    QPushButton* browseButton;
    QPushButton* actionButton;
    QPushButton* cancelButton;
};
TransferParts BuildTransferFrame(QDialog* dialog, const TransferTexts& texts);
// The captions of the load: the profile's name read from config.txt, the dialog's slots, and
// the names a screen reader gives the path ("Export the data of user Ann") and the "..." (the
// dialog it opens).
void SetTransferCaptions(
    const TransferParts& parts, QDialog* dialog, Text caption, Text lead, const QString& browseDialogTitle);

template <typename Form> class TransferDialog : public SingleDialog<Form>
{
protected:
    TransferDialog(QWidget* owner, const TransferTexts& texts)
        : SingleDialog<Form>(owner)
        , parts(BuildTransferFrame(this, texts))
    {
        QObject::connect(parts.cancelButton, &QPushButton::clicked, this, [] { SingleDialog<Form>::Unload(); });
    }
    TransferParts parts;
};
