// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Opening a file or web address through the shell, with the shell's failures turned into
// run-time errors.
#include <QString>

class QWidget;

// Opens `file` with the operation "open". An empty directory becomes the file's folder (up to
// and including its last backslash). No program for the file: the user is asked for one.
// Other failures raise the run-time error of the shell's result when raiseErrors is true;
// none of the callers handles it, so the run ends there.
void ShellOpen(
    QWidget* owner, const QString& file, const QString& parameters, QString& directory, qint32 show, bool raiseErrors);

// A profile change or an import: a new process of the program with "/restart", then the end of
// this one at once, with no window's unload, so nothing in memory is written back. Whether the
// new process could be started is not looked at.
[[noreturn]] void RestartProgram();
