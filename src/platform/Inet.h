// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The HTTP client control (the runtime's Inet, with Execute, StillExecuting, GetHeader, GetChunk
// and Cancel): one GET at a time, asked while it runs whether it still executes,
// then the response header text and the body in chunks. Redirects are not followed: a 301 is
// an answer like any other. Nothing here waits; the caller yields between its questions.
#include <QByteArray>
#include <QString>

#include <memory>

class QNetworkAccessManager;
class QNetworkReply;

namespace platform {

class HttpClient
{
public:
    HttpClient();
    ~HttpClient();
    HttpClient(const HttpClient&) = delete;
    HttpClient& operator=(const HttpClient&) = delete;

    // Starts a GET. False (the runtime's "still executing" failure) while a request runs.
    bool start(const QString& url);
    bool isRunning() const;
    // "HTTP/1.1 200 OK" CR LF, then each header as "Name: value" CR LF; empty without an answer.
    QString header() const;
    // Up to `size` bytes of the body not yet taken; empty when all was taken.
    QByteArray takeChunk(int size);
    void cancel();

private:
    std::unique_ptr<QNetworkAccessManager> manager;
    QNetworkReply* reply = nullptr;
    QByteArray body;
    qsizetype taken = 0;
};

} // namespace platform
