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

MD5ContextPtr Md5Start()
{
    return MD5ContextPtr(new MD5Context);
}

void Md5Add(MD5Context& context, const char* bytes, qsizetype length)
{
    context.hash.addData(QByteArrayView(bytes, length));
}

QByteArray Md5Finish(MD5Context& context)
{
    return context.hash.result();
}

} // namespace platform
