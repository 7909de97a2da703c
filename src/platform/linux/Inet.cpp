// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Inet.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace platform {

HttpClient::HttpClient()
    : manager(std::make_unique<QNetworkAccessManager>())
{
}

HttpClient::~HttpClient()
{
    cancel();
}

bool HttpClient::start(const QString& url)
{
    if (isRunning())
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

bool HttpClient::isRunning() const
{
    return reply && reply->isRunning();
}

QString HttpClient::header() const
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

QByteArray HttpClient::takeChunk(int size)
{
    if (!reply)
        return QByteArray();
    body += reply->readAll();
    const QByteArray chunk = body.mid(taken, size);
    taken += chunk.size();
    return chunk;
}

void HttpClient::cancel()
{
    if (!reply)
        return;
    reply->abort();
    reply->deleteLater();
    reply = nullptr;
}

} // namespace platform
