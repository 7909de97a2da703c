// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/FileExist.h"

#include "platform/Files.h"

qint16 FileExist(const QString& path)
{
    const qint64 size = platform::FileSize(path);
    return size >= 0 ? -1 : 0;
}
