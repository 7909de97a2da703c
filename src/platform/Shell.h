// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The shell's open: a file, a folder or an address handed to the program the desktop has for
// it, with the shell's result codes: above 32 for success, else 2 file not found, 3 path not
// found, 5 access denied, 8 out of memory, 31 no program for that kind of file, and so on.
#include <QString>

#include <functional>

class QWidget;

namespace platform {

struct ShellCall
{
    QString verb;
    QString file;
    QString parameters;
    QString directory;
    int show = 1;
};

// Opens or starts a file through the desktop (ShellExecuteA: the shell's open). An empty file
// opens the working folder; a relative one is taken in the working folder. A file ending in
// ".exe" starts that program.
int OpenThroughShell(QWidget* owner, const QString& verb, const QString& file, const QString& parameters,
    const QString& directory, int show);

// The shell's result when no program opens that kind of file (SE_ERR_NOASSOC).
constexpr int NoProgramForFile = 31;

// Asks the user for a program to open the file with, and opens it there: the shell's call of
// "RUNDLL32.EXE" with "shell32.dll,OpenAs_RunDLL <file>" (the system's Open With dialog).
int OpenWithChosenProgram(QWidget* owner, const QString& file, const QString& directory, int show);

// Tests answer the shell themselves; an empty backend restores the desktop's.
using ShellBackend = std::function<int(const ShellCall&)>;
void SetShellBackend(ShellBackend backend);

} // namespace platform
