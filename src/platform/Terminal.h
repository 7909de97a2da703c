// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A line typed on the terminal without its echo, for a password; from standard input as it comes
// when that is no terminal (a pipe or a file, for scripts).
#include <optional>

#include <QString>

namespace platform {

// The prompt goes to the terminal's error stream. Nothing when the input has ended.
std::optional<QString> ReadSecretLine(const QString& prompt);

} // namespace platform
