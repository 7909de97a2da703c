#include "services/ShellMod.h"

#include "platform/Runtime.h"
#include "platform/Shell.h"

namespace {

// A raised error with no handler anywhere up the calls ends the run.
void Raise(bool raiseErrors, int number, const QString& description = QString())
{
    if (raiseErrors)
        platform::UnhandledError(number, description);
}

} // namespace

void ShellOpen(
    QWidget* owner, const QString& file, const QString& parameters, QString& directory, qint32 show, bool raiseErrors)
{
    if (directory.isEmpty())
        directory = file.left(file.lastIndexOf(QLatin1Char('\\')) + 1);
    const int result = platform::ShellExecuteA(owner, QStringLiteral("open"), file, parameters, directory, show);
    if (result > 32 || result < 0)
        return;
    switch (result) {
    case 0:
    case 8:
        Raise(raiseErrors, 7);
        break;
    case 2:
        Raise(raiseErrors, 53);
        break;
    case 3:
        Raise(raiseErrors, 76);
        break;
    case 5:
        Raise(raiseErrors, 70);
        break;
    case 11:
        Raise(raiseErrors, 321);
        break;
    case 26:
        Raise(raiseErrors, 26, QStringLiteral("A Sharing violation occurred."));
        break;
    case 27:
        Raise(raiseErrors, 27, QStringLiteral("The filename association is incomplete or invalid."));
        break;
    case 28: // the number differs from the result, as it always has
        Raise(raiseErrors, 25,
            QStringLiteral("The DDE transaction could not be completed because the request timed out."));
        break;
    case 29:
        Raise(raiseErrors, 29, QStringLiteral("The DDE transaction failed."));
        break;
    case 30:
        Raise(raiseErrors, 30,
            QStringLiteral("The DDE transaction could not be completed because other DDE transactions were being "
                           "processed."));
        break;
    case 31:
        platform::ShellExecuteA(owner, QStringLiteral("open"), QStringLiteral("RUNDLL32.EXE"),
            QStringLiteral("shell32.dll,OpenAs_RunDLL ") + file, directory, show);
        break;
    case 32:
        Raise(raiseErrors, 48);
        break;
    default:
        break;
    }
}
