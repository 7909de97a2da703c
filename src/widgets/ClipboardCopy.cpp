// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/ClipboardCopy.h"

#include "platform/Clipboard.h"
#include "platform/MessageBox.h"

void SetClipboardText(QString& text)
{
    const platform::TextCopyFailures failed = platform::CopyTextToClipboard(text);
    // The clipboard is closed even when it was never opened: that order is the original's.
    if (failed.unlock)
        platform::ShowMessage(QStringLiteral("Could not unlock memory location. Copy aborted."));
    if (failed.open) {
        platform::ShowMessage(QStringLiteral("Could not open the Clipboard. Copy aborted."));
        return;
    }
    if (failed.close)
        platform::ShowMessage(QStringLiteral("Could not close Clipboard."));
}
