// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The windows that lie above others, made known to those below them: the settings window to
// the vault window, the vault window to the tray host, the profile dialogs to the settings
// window, the vault's save to the end of a run by an unhandled error; and the access keys that
// move the focus as Windows does. The program calls this once at start, and so do the tests.
void ConnectWindows();
