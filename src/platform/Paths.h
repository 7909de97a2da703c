// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The logic only ever handles Windows-form paths ("C:\...", backslashes, joined by plain
// concatenation). This unit maps them onto the native file system at each file operation.
#include <QString>
#include <QStringList>

namespace platform {

// Windows-form path -> native path. Drive C: is the user's home folder, Z: the file-system
// root, D: onwards the mounted removable media. Backslashes become slashes, doubled
// separators are harmless, and a component that does not exist under its exact name is
// looked up without regard to case, as on the original platform. "tolvane.exe" and
// "tolvane_usb.exe" name this program's executables. Returns an empty text for a drive
// that does not exist.
QString ToNative(const QString& windowsPath);

// Native absolute path -> Windows form ("C:\folder", a root as "C:\").
QString ToWindows(const QString& nativePath);

// Native root folder of a drive letter, empty if there is no such drive.
QString DriveRoot(QChar letter);

// Drive letters present now, in order ("C", "D", ..., "Z").
QStringList DriveLetters();

// The program's own folder as the runtime gives it (App.Path): no trailing separator unless it is a root.
QString ProgramFolder();

// Native folder of the running executable (or the override for tests).
QString NativeProgramDir();

// The per-user local application data folder, made if missing (stand-in for
// SHGetFolderPathA with 0x801C). Windows form; empty when it can't be had.
QString LocalAppDataFolder();

// The whole argument text of the process, as one string.
QString CommandLine();
void SetCommandLine(const QStringList& arguments);

} // namespace platform
