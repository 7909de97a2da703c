// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The one layer through which the program touches the registry. All operations end in a plain
// return on any failure: callers see the default or an untouched value.
#include "platform/Registry.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

QString RegBuildPath(const QString& root, const QString& application, const QString& section);
platform::HKEY RegHiveFromName(const QString& name);
QString RegNameFromHive(platform::HKEY hive);

// Text (types 1, 2), binary as hex pairs (3) or a number (4, 5); the default when the value is
// absent, empty after trimming, or can't be read.
QVariant RegGetValue(const QString& application, const QString& section, const QString& valueName,
    const QVariant& defaultValue, platform::HKEY hive, const QString& root, bool writeAccess = false);

// Always true, even when the write failed.
bool RegSetValue(const QString& application, const QString& section, const QString& valueName, const QVariant& value,
    platform::HKEY hive, const QString& root, int type = platform::REG_SZ);

bool RegDeleteEntry(const QString& application, const QString& section, const QString& valueName, platform::HKEY hive,
    const QString& root);

void RegListSubkeys(
    const QString& hiveName, const QString& path, bool testChildren, QStringList& names, QList<bool>& hasChildren);

// The program's own key: HKEY_CURRENT_USER, "SOFTWARE\Brenmark", Tolvane, Settings.
QString GetProgramSetting(const QString& valueName);
void SaveProgramSetting(const QString& valueName, const QString& value);
