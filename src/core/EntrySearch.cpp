// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/EntrySearch.h"

QString RowTitle(const QString& row)
{
    const qsizetype cut = row.indexOf(QStringLiteral(" ("));
    return cut < 0 ? row : row.left(cut);
}

std::optional<QString> SearchRow(const Entry& e, const QString& needle)
{
    const QString title = Shown(e.title);
    auto holds = [&needle](const QByteArray& field) { return Shown(field).toLower().contains(needle); };
    if (holds(e.title))
        return title;
    if (holds(e.userName))
        return title + QStringLiteral(" (") + Shown(e.userName) + QLatin1Char(')');
    if (holds(e.password))
        return title + QStringLiteral(" (Password: ") + Shown(e.password) + QLatin1Char(')');
    if (holds(e.document))
        return title;
    if (holds(e.url))
        return title + QStringLiteral(" (URL: ") + Shown(e.url) + QLatin1Char(')');
    if (holds(e.passphrase))
        return title + QStringLiteral(" (Passphrase: ") + Shown(e.passphrase) + QLatin1Char(')');
    if (holds(e.note))
        return title;
    return std::nullopt;
}
