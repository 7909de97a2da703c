// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The HTTP client control: one GET at a time, asked while it runs whether it still executes,
// then the response header text and the body in chunks. Redirects are not followed: a 301 is
// an answer like any other. Nothing here waits; the caller yields between its questions.
#include <QByteArray>
#include <QString>

#include <memory>

class QNetworkAccessManager;
class QNetworkReply;

namespace platform {

class Inet
{
public:
    Inet();
    ~Inet();
    Inet(const Inet&) = delete;
    Inet& operator=(const Inet&) = delete;

    // Starts a GET. False (the runtime's "still executing" failure) while a request runs.
    bool Execute(const QString& url);
    bool StillExecuting() const;
    // "HTTP/1.1 200 OK" CR LF, then each header as "Name: value" CR LF; empty without an answer.
    QString GetHeader() const;
    // Up to `size` bytes of the body not yet taken; empty when all was taken.
    QByteArray GetChunk(int size);
    void Cancel();

private:
    std::unique_ptr<QNetworkAccessManager> manager;
    QNetworkReply* reply = nullptr;
    QByteArray body;
    qsizetype taken = 0;
};

} // namespace platform
