// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>

// -1 if the size of the path can be read and is 0 or more, else 0: a missing file, a folder
// or an unreadable path all give 0, an empty file counts as existing.
qint16 FileExist(const QString& path);
