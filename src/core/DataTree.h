// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "core/ListControl.h"

#include <QString>

// Makes the folder and every missing parent, from the drive root down. -1 / 0.
qint16 MakeDirTree(const QString& path);

// Deletes the folder with all it holds. -1 only when no error was left and it is gone.
qint16 RemoveDirTree(const QString& path);

// Fills the list from a file, one item a line. Any failure (above all a missing file, or more
// lines than a signed 16-bit counter takes) provisions the data tree instead.
void LoadListFile(const QString& path, ListControl& list);

// Writes the items one a line, replacing the file. A failure ends it silently.
void SaveListFile(const QString& path, const ListControl& list);

// As LoadListFile without the provisioning. Returns 0, or the error number for the caller.
int LoadComboFile(const QString& path, ListControl& combo);
