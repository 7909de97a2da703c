// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The system clipboard behind the classic calls: a moveable memory block filled with 8-bit
// text, then opened, emptied, given the block and closed. Each call reports failure as the
// original does (0 or a null pointer), so that the caller can tell it in words.
#include <QString>

namespace platform {

using HGLOBAL = quintptr; // HGLOBAL: a block of global memory

constexpr unsigned GHND = 66; // GHND: moveable and zero-filled
constexpr unsigned CF_TEXT = 1; // CF_TEXT: 8-bit text

// GlobalAlloc: a block of `bytes` bytes, or 0.
HGLOBAL GlobalAlloc(unsigned flags, qsizetype bytes);
// GlobalLock: the block's memory, locked once more; null for an unknown block.
char* GlobalLock(HGLOBAL block);
// GlobalUnlock: the number of locks still held: 0 when the block is no longer locked.
int GlobalUnlock(HGLOBAL block);
// lstrcpy: copies the text into a locked block as 8-bit text in the system's code page, with its end
// zero; never beyond the end of the block.
char* lstrcpy(char* destination, const QString& source);

// OpenClipboard: 0 when the clipboard can't be opened: another program holds it, or there is no clipboard.
int OpenClipboard(quintptr owner);
int EmptyClipboard(); // EmptyClipboard: drops what the clipboard holds
// SetClipboardData: only plain 8-bit text (format 1), only while open; the clipboard then owns the block.
HGLOBAL SetClipboardData(unsigned format, HGLOBAL block);
// CloseClipboard: 0 when the clipboard was not open.
int CloseClipboard();

// The classic copy, step by step: a block filled with the text and unlocked, then the clipboard
// opened, emptied, given the block and closed. Which steps failed, for the caller to tell: after
// a failed unlock the clipboard is closed without having been opened; after a failed open it is
// left alone.
struct TextCopyFailures
{
    bool unlock = false;
    bool open = false;
    bool close = false;
};
TextCopyFailures CopyTextToClipboard(const QString& text);

// The format whose value "secret" clipboard managers (Klipper, CopyQ and others) read as: keep
// this text out of the history.
inline constexpr char secretHintFormat[] = "x-kde-passwordManagerHint";

// Text this program has just put on the clipboard in another way (an edit box's cut) gets the
// mark that SetClipboardData gives: clipboard managers keep it out of their history.
void MarkClipboardSecret();

// The runtime's Clipboard.Clear.
void ClipboardClear();
// What other programs would paste now.
QString ClipboardText();

// Text this program still owns at EndProcess stays on the clipboard for other programs, with its
// mark: on X11 the program's own keeper (tolvane-clipboard-keeper, beside the program) serves it.
void KeepClipboardAfterExit();

// Tests: another program holds the clipboard open, so that OpenClipboard fails.
void SetClipboardHeldElsewhere(bool held);

} // namespace platform
