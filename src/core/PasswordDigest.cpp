// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/PasswordDigest.h"

#include "platform/CodePage.h"
#include "platform/Md5.h"

QString MD5Hex(const QString& text)
{
    const QByteArray bytes = platform::ToCodePage(text);
    auto context = platform::Md5Start();
    platform::Md5Add(*context, bytes.constData(), bytes.size());
    const QByteArray digest = platform::Md5Finish(*context);
    QString out;
    for (char c : digest) {
        const auto b = static_cast<uchar>(c);
        if (b < 16)
            out += QLatin1Char('0') + QString::number(b, 16).toUpper();
        else
            out += QStringLiteral("%1").arg(b, 2, 16, QLatin1Char('0')).toLower();
    }
    return out;
}
