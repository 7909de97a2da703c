// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Inet.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace platform {

Inet::Inet()
    : manager(std::make_unique<QNetworkAccessManager>())
{
}

Inet::~Inet()
{
    Cancel();
}

bool Inet::Execute(const QString& url)
{
    if (StillExecuting())
        return false;
    if (reply)
        reply->deleteLater();
    body.clear();
    taken = 0;
    QNetworkRequest request { QUrl(url) };
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    reply = manager->get(request);
    return true;
}

bool Inet::StillExecuting() const
{
    return reply && reply->isRunning();
}

QString Inet::GetHeader() const
{
    if (!reply)
        return QString();
    const QVariant status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (!status.isValid())
        return QString();
    QString text = QStringLiteral("HTTP/1.1 %1 %2\r\n")
                       .arg(status.toInt())
                       .arg(reply->attribute(QNetworkRequest::HttpReasonPhraseAttribute).toString());
    for (const auto& [name, value] : reply->rawHeaderPairs())
        text += QString::fromLatin1(name) + QStringLiteral(": ") + QString::fromLatin1(value) + QStringLiteral("\r\n");
    return text;
}

QByteArray Inet::GetChunk(int size)
{
    if (!reply)
        return QByteArray();
    body += reply->readAll();
    const QByteArray chunk = body.mid(taken, size);
    taken += chunk.size();
    return chunk;
}

void Inet::Cancel()
{
    if (!reply)
        return;
    reply->abort();
    reply->deleteLater();
    reply = nullptr;
}

} // namespace platform
