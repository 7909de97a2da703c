// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Where the data tree hangs. Nothing here is stored: every caller works the root out anew,
// from the platform, and reads `current` again when it needs a profile's file.
#include <QString>

// Portable mode: the program runs from a removable drive, with a file usb.inf beside it.
bool PortableMode();

// The program's folder in portable mode, else the per-user local application data folder.
QString DataRoot();

// DataRoot followed by "\Brenmark\Tolvane\data\".
QString DataFolder();

// The full path of config.txt.
QString ConfigFile();

// `current` of config.txt, read now.
QString CurrentProfile();

// A file of the current profile: data folder, `current`, "\", the name.
QString ProfileFile(const QString& fileName);
