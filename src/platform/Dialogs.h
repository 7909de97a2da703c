#pragma once
// The runtime's common dialogs and the system beep, each behind one routine that tests can
// answer by script, as they answer message boxes.
#include <QString>

#include <functional>

class QWidget;

namespace platform {

struct OpenFileCall
{
    QString title;
    // The classic filter text: "Description|pattern;pattern|Description|pattern".
    QString filter;
};

// Returns the chosen file as a Windows-form path, or the empty text when the user cancelled.
using OpenFileBackend = std::function<QString(const OpenFileCall&)>;

QString ShowOpenFile(QWidget* owner, const QString& title, const QString& filter);
void SetOpenFileBackend(OpenFileBackend backend);

// The save dialog (GetSaveFileNameA): the user's name for the file, or empty when cancelled. A
// name without an extension gets `defaultExtension`, whatever the filter says. The dialog asks
// before replacing a file. Tests answer with the name the user would type.
struct SaveFileCall
{
    QString title;
    QString filter; // classic form, as for the open dialog
    QString initialFolder;
    QString fileName;
    QString defaultExtension;
};
using SaveFileBackend = std::function<QString(const SaveFileCall&)>;
QString GetSaveFileNameA(QWidget* owner, const SaveFileCall& call);
void SetSaveFileBackend(SaveFileBackend backend);

// The shell's folder browser, opened at `startPath`: the chosen folder (Windows form) or empty.
struct BrowseFolderCall
{
    QString title;
    QString startPath;
};
using BrowseFolderBackend = std::function<QString(const BrowseFolderCall&)>;
QString SHBrowseForFolderA(QWidget* owner, const BrowseFolderCall& call);
void SetBrowseFolderBackend(BrowseFolderBackend backend);

// The runtime's Beep.
void Beep();
void SetBeepHook(std::function<void()> hook);

} // namespace platform
