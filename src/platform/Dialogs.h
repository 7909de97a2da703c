// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The runtime's common dialogs and the system beep, each behind one routine that tests can
// answer by script, as they answer message boxes.
#include <QString>

#include <functional>

class QWidget;

namespace platform {

// The common file dialogs (GetOpenFileNameA, GetSaveFileNameA). The whole request goes
// through here: the name the box starts with, the default extension, and the flags whose
// questions the dialog asks before it lets a name through.
constexpr int AskBeforeReplacing = 0x2; // OFN_OVERWRITEPROMPT
constexpr int NoReadOnlyBox = 0x4; // OFN_HIDEREADONLY: no "open as read-only" box
constexpr int PathMustExist = 0x800; // OFN_PATHMUSTEXIST
constexpr int FileMustExist = 0x1000; // OFN_FILEMUSTEXIST
constexpr int AskBeforeCreating = 0x2000; // OFN_CREATEPROMPT

struct FileDialogCall
{
    bool save = false;
    QString title;
    // The classic filter text: "Description|pattern;pattern|Description|pattern".
    QString filter;
    QString initialFolder;
    QString fileName; // what the name box starts with
    QString defaultExtension; // added to a name given without one ("pdf", "*.tvd" adds ".tvd")
    int flags = 0;
};

// What the user does with the dialog: the name in its box (a Windows-form path) when OK is
// pressed, or the empty text for Cancel. The window system answers, or a test.
using FileDialogBackend = std::function<QString(const FileDialogCall&)>;
void SetFileDialogBackend(FileDialogBackend backend);

// The dialog's whole work: the user's name, the default extension added, then the questions
// its flags ask (each a message box: replace a file that exists, create one that does not, a
// file that must exist); a No shows the dialog again. The chosen path, or empty for Cancel.
QString ChooseFileToOpen(QWidget* owner, const FileDialogCall& call); // GetOpenFileNameA
QString ChooseFileToSave(QWidget* owner, const FileDialogCall& call); // GetSaveFileNameA

// The shell's folder browser, opened at `startPath`: the chosen folder (Windows form) or empty.
struct BrowseFolderCall
{
    QString title;
    QString startPath;
};
using BrowseFolderBackend = std::function<QString(const BrowseFolderCall&)>;
QString ChooseFolder(QWidget* owner, const BrowseFolderCall& call); // SHBrowseForFolderA
void SetBrowseFolderBackend(BrowseFolderBackend backend);

// The runtime's Beep.
void Beep();
void SetBeepHook(std::function<void()> hook);

} // namespace platform
