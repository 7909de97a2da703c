// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/InstallerLanguage.h"
#include "platform/Clipboard.h"
#include "platform/Display.h"
#include "platform/GuiMessageBox.h"
#include "platform/Instance.h"
#include "platform/Paths.h"
#include "platform/Runtime.h"
#include "platform/Twips.h"
#include "program/ProgramWiring.h"
#include "widgets/ProgramPictures.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char* argv[])
{
    // Started over ssh or from a service, a window would show nowhere: say so and end.
    if (!platform::DisplayAnswers()) {
        std::fputs("tolvane: no display: start it in a desktop session (DISPLAY or WAYLAND_DISPLAY)\n", stderr);
        return 1;
    }
    // A copy runs from its start: later starts see it even while its first message is up.
    platform::AnnounceInstance();
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Tolvane"));
    QApplication::setWindowIcon(ProgramIcon());
    SetDesignFont();
    // The run ends by its own commands, not when a window closes: the login hands over to the
    // vault window, and the host window stays when the vault window is closed.
    QApplication::setQuitOnLastWindowClosed(false);
    platform::SetCommandLine(QApplication::arguments());
    platform::InstallWindowMessageBoxes();
    platform::KeepClipboardAfterExit();
    Program program;

    // Ending the session or the process by a signal ends the run as File > Close does: the vault
    // is written and the clipboard emptied as the options say.
    platform::OnTerminationRequest([&program] { program.endRun(); });

    ChooseLanguageAsInstallerWould();
    UseKeptCodePage(true);
    program.start();
    return QApplication::exec();
}
