// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/ShellOpen.h"

#include "platform/Paths.h"
#include "platform/Runtime.h"
#include "platform/Shell.h"

namespace {

struct RaisedError
{
    int result;
    int number;
    const char* description; // null: the runtime's text for the number
};

// The shell's failures and the errors they raise. DDE time-out (28) raises 25, as it always has.
constexpr RaisedError raisedErrors[] = {
    { 0, 7, nullptr },
    { 8, 7, nullptr },
    { 2, 53, nullptr },
    { 3, 76, nullptr },
    { 5, 70, nullptr },
    { 11, 321, nullptr },
    { 26, 26, "A Sharing violation occurred." },
    { 27, 27, "The filename association is incomplete or invalid." },
    { 28, 25, "The DDE transaction could not be completed because the request timed out." },
    { 29, 29, "The DDE transaction failed." },
    { 30, 30, "The DDE transaction could not be completed because other DDE transactions were being processed." },
    { 32, 48, nullptr },
};

} // namespace

void ShellOpen(
    QWidget* owner, const QString& file, const QString& parameters, QString& directory, qint32 show, bool raiseErrors)
{
    if (directory.isEmpty())
        directory = file.left(file.lastIndexOf(QLatin1Char('\\')) + 1);
    const int result = platform::OpenThroughShell(owner, QStringLiteral("open"), file, parameters, directory, show);
    if (result > 32 || result < 0)
        return;
    if (result == platform::NoProgramForFile) {
        platform::OpenWithChosenProgram(owner, file, directory, show);
        return;
    }
    for (const RaisedError& e : raisedErrors) {
        // A raised error with no handler anywhere up the calls ends the run.
        if (e.result == result && raiseErrors)
            platform::UnhandledError(e.number, e.description ? QLatin1String(e.description) : QString());
    }
}

void RestartProgram()
{
    platform::OpenThroughShell(nullptr, QStringLiteral("Open"),
        platform::ProgramFolder() + QStringLiteral("\\tolvane.exe"), QStringLiteral("/restart"), QString(), 1);
    platform::EndProcess(0);
}
