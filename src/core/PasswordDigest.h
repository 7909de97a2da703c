// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>

// The digest text that every password and answer check compares: the MD5 of the text's
// code-page bytes, byte by byte, a byte below 16 as "0" and an upper-case digit, any other as
// two lower-case digits. Stored values have this mixed form, so it must not be normalised.
QString MD5Hex(const QString& text);
