// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The desktop's clipboard for a process without windows (the terminal tool): a text on it
// belongs to a program connected to the display, so the keeper beside the program
// (tolvane-clipboard-keeper) holds it, and the tool stays free of the GUI libraries.
#include <QString>

#include <functional>

namespace platform {

// The keeper in the folder of the running executable, or empty when this copy has none there
// (a copy carried to a drive without it).
QString ClipboardKeeperBeside();

// Has the keeper put the text on the clipboard, marked secret for clipboard managers, and waits
// while it holds it there: it empties the clipboard after `seconds`, or at once when this
// process is asked to end (SIGINT, SIGTERM, SIGHUP), unless something else was copied
// meanwhile. `copied` runs once the text is on the clipboard. False when the keeper could not
// put it there; true also when an end was asked before it could.
bool HoldOnClipboard(const QString& keeper, const QString& text, int seconds, const std::function<void()>& copied);

} // namespace platform
