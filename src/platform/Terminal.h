// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A line typed on the terminal without its echo, for a password; from standard input as it comes
// when that is no terminal (a pipe or a file, for scripts).
#include <optional>

#include <QByteArray>
#include <QString>

namespace platform {

// The longest line read: far more than any password typed or pasted, and a bound on what an
// endless input (a device, a stuck pipe) can make the reader keep.
constexpr qsizetype LongestSecretLine = 1024 * 1024;

// The prompt goes to the terminal's error stream. Nothing when the input has ended, or when the
// line goes on past LongestSecretLine (then `tooLong`, if given, is set).
std::optional<QString> ReadSecretLine(const QString& prompt, bool* tooLong = nullptr);

// The rest of standard input, up to `limit` bytes; false when there is more (or it can't be read).
bool ReadStandardInput(QByteArray& input, qint64 limit);

} // namespace platform
