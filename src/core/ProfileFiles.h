// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The one door to the key=value files (config.txt, settings.txt, cfg.txt, time.txt).
#include <QString>

QString GetIni(const QString& section, const QString& key, const QString& file);
void WriteIni(const QString& section, const QString& key, const QString& value, const QString& file);

// The options of a profile, kept in cfg.txt's setts section, "1" for on.
enum class Option
{
    AlwaysOnTop, // stored and shown, and acted on by nothing
    SortList, // stored and shown, and acted on by nothing
    ClearClipboardOnClose,
    MinimiseAfterCopy,
    HidePasswords,
};

// Every option, in the order of the file and of the settings window's boxes.
inline constexpr Option AllOptions[] = { Option::AlwaysOnTop, Option::SortList, Option::ClearClipboardOnClose,
    Option::MinimiseAfterCopy, Option::HidePasswords };

// Every section and key of those files, in one place.
namespace Keys {
inline const QString user = QStringLiteral("user");
inline const QString settings = QStringLiteral("settings");
inline const QString setts = QStringLiteral("setts");

inline const QString current = QStringLiteral("current");
inline const QString defaultProfile = QStringLiteral("default");
inline const QString switchTo = QStringLiteral("switch");
inline const QString tempChangeable = QStringLiteral("temp_changeable");
inline const QString tempChangeable2 = QStringLiteral("temp_changeable2");

inline const QString password = QStringLiteral("password");
inline const QString question = QStringLiteral("question");
inline const QString answer = QStringLiteral("answer");
inline const QString email = QStringLiteral("email");
inline const QString time = QStringLiteral("time");

// s1 to s5 of cfg.txt.
QString option(Option option);
} // namespace Keys
