// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Text onto the clipboard through the classic calls, so that each failure is told in words.
#include <QString>

// Puts the text on the clipboard as 8-bit text. Every copy of the vault window and the
// generator comes here.
void SetClipboardText(QString& text);
