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

// The runtime's Beep.
void Beep();
void SetBeepHook(std::function<void()> hook);

} // namespace platform
