// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The save-file dialog the program's windows share.
#include <QString>

class QWidget;

// The chosen path with outer blanks trimmed, or empty text. The filter is in the classic form
// ("Text (*.txt)|*.txt"). Every caller gets "pdf" as the default extension: a name typed without
// one is saved as .pdf, even under a text filter.
QString ShowSaveDialog(
    QWidget* owner, const QString& filter, const QString& title, const QString& initialFolder, const QString& fileName);
