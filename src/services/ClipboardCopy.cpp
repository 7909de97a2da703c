// SPDX-License-Identifier: GPL-3.0-or-later
#include "services/ClipboardCopy.h"

#include "platform/Clipboard.h"
#include "platform/MessageBox.h"

void SetClipboardText(QString& text)
{
    using namespace platform;
    const HGLOBAL block = GlobalAlloc(GHND, text.size() + 1);
    char* memory = GlobalLock(block);
    lstrcpy(memory, text);
    if (GlobalUnlock(block) != 0) {
        // The clipboard was never opened, yet it is closed below: that order is the original's.
        MsgBox(QStringLiteral("Could not unlock memory location. Copy aborted."));
    } else {
        if (OpenClipboard(0) == 0) {
            MsgBox(QStringLiteral("Could not open the Clipboard. Copy aborted."));
            return;
        }
        EmptyClipboard();
        SetClipboardData(CF_TEXT, block);
    }
    if (CloseClipboard() == 0)
        MsgBox(QStringLiteral("Could not close Clipboard."));
}
