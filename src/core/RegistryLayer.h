// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The program's own settings in the user's registry store (key "SOFTWARE\Brenmark\Tolvane\Settings").
#include <QString>

// The value as text; empty when it is absent, blank, or can't be read.
QString GetProgramSetting(const QString& valueName);
// Written as text; a store that refuses keeps what it has.
void SaveProgramSetting(const QString& valueName, const QString& value);
