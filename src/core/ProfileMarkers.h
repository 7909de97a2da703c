// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The profile markers: a profile exists if and only if its dummy.dat exists, whatever it holds.
// Each routine works the data root out itself and answers -1 or 0.
#include <QString>

qint16 ProfileMarkerExists(const QString& profile);
// Reads the key of section `user` in config.txt; an empty value is no profile.
qint16 NamedProfileMarkerExists(const QString& key);
qint16 AdministratorMarkerExists();
