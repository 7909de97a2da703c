// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The three calls of the small MD5 library (RFC 1321), here on Qt's own MD5.
#include <QByteArray>

#include <memory>

namespace platform {

struct MD5Context; // MD5_CTX: a digest under way

struct MD5ContextDeleter
{
    void operator()(MD5Context* context) const;
};
using MD5ContextPtr = std::unique_ptr<MD5Context, MD5ContextDeleter>;

MD5ContextPtr Md5Start(); // MD5Init
void Md5Add(MD5Context& context, const char* bytes, qsizetype length); // MD5Update
// MD5Final: the 16 bytes of the digest.
QByteArray Md5Finish(MD5Context& context);

} // namespace platform
