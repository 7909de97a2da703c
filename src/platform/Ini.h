// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Stand-ins for GetPrivateProfileStringA and WritePrivateProfileStringA, behaving as those are
// documented: names without regard to case, blanks around keys and values ignored on reading,
// matching quotes around a value dropped, a buffer contract of size - 1 characters, nothing
// created by a read; a write keeps every other line byte for byte.
#include <QString>

namespace platform {

// GetPrivateProfileStringA: copies at most size - 1 characters of the value (or the default) into buffer and returns
// the count copied.
int ReadIniString(const QString& section, const QString& key, const QString& defaultValue, QString& buffer, int size,
    const QString& fileName);

// WritePrivateProfileStringA: creates the file and the section when missing; replaces the key's line or adds it at the
// end of its section. A write below a missing folder is lost. Returns false on failure.
bool WriteIniString(const QString& section, const QString& key, const QString& value, const QString& fileName);

} // namespace platform
