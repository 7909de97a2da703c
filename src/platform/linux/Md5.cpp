// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Md5.h"

#include <QCryptographicHash>

namespace platform {

struct MD5Context
{
    QCryptographicHash hash { QCryptographicHash::Md5 };
};

void MD5ContextDeleter::operator()(MD5Context* context) const
{
    delete context;
}

MD5ContextPtr MD5Init()
{
    return MD5ContextPtr(new MD5Context);
}

void MD5Update(MD5Context& context, const char* bytes, qsizetype length)
{
    context.hash.addData(QByteArrayView(bytes, length));
}

QByteArray MD5Final(MD5Context& context)
{
    return context.hash.result();
}

} // namespace platform
