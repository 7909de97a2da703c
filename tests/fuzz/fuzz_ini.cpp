// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a key=value file: reads never fail, a write keeps every other line.
#include "platform/Files.h"
#include "platform/Ini.h"
#include "platform/Paths.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static QTemporaryDir dir;
    static const QString native = dir.path() + QStringLiteral("/f.txt");
    static const QString path = platform::ToWindows(native);
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    {
        QFile f(native);
        if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
            return 0;
        f.write(bytes);
    }
    QString buffer(255, QChar(0));
    const int n
        = platform::ReadIniString(QStringLiteral("user"), QStringLiteral("current"), QString(), buffer, 255, path);
    if (n < 0 || n > 254)
        __builtin_trap();
    platform::WriteIniString(QStringLiteral("user"), QStringLiteral("current"), QStringLiteral("Anna"), path);
    buffer = QString(255, QChar(0));
    const int m
        = platform::ReadIniString(QStringLiteral("user"), QStringLiteral("current"), QString(), buffer, 255, path);
    if (buffer.left(m) != QLatin1String("Anna"))
        __builtin_trap();
    return 0;
}
