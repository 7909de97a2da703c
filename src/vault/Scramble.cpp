// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/Scramble.h"

#include "platform/Random.h"
#include "platform/Runtime.h"

QByteArray DecodeBMK(QByteArray text)
{
    const QByteArray t = text.mid(1, text.size() - 3);
    const double m = (static_cast<double>(t.size()) - 1.0) / 3.0;
    QByteArray r;
    double percent = 0;
    for (int i = 1; i <= m; ++i) {
        r.append(static_cast<char>(static_cast<uchar>(t.at(3 * i)) + 2));
        percent = 100.0 * i / m;
        platform::DoEvents();
    }
    Q_UNUSED(percent)
    QByteArray result(1, static_cast<char>(static_cast<uchar>(t.at(0)) + 2));
    return result + r.left(r.size() - 1);
}

QByteArray Hirbush(int count)
{
    QByteArray filler;
    for (int i = 1; i < count; ++i)
        filler.append(static_cast<char>(static_cast<int>(platform::Rnd() * 200 + 36)));
    return filler;
}
