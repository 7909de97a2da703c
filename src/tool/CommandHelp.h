// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What `tolvane-vault COMMAND --help` prints: that command alone, with its synopsis, arguments,
// options and an example. One table for every command; the manual page takes each from here.
#include <QString>

// The help of the command; empty for a name that is no command.
QString CommandHelp(const QString& command);

// Whether the command takes the option (its name without the dashes: "json", "attribute"); every
// command takes "help", and those on a profile "profile".
bool CommandTakes(const QString& command, const QString& option);
