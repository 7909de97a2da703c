// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Display.h"

#include <QByteArray>
#include <QtGlobal>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace platform {
namespace {

// A local socket by path; `abstract` puts it in the abstract namespace, as X servers also listen.
bool connectsLocal(const QByteArray& path, bool abstract)
{
    sockaddr_un address {};
    address.sun_family = AF_UNIX;
    const qsizetype offset = abstract ? 1 : 0;
    if (path.isEmpty() || path.size() + offset >= static_cast<qsizetype>(sizeof address.sun_path))
        return false;
    std::memcpy(address.sun_path + offset, path.constData(), static_cast<size_t>(path.size()));
    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0)
        return false;
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + offset + path.size());
    const bool connected = ::connect(fd, reinterpret_cast<const sockaddr*>(&address), length) == 0;
    ::close(fd);
    return connected;
}

// A display on another host, over TCP, given two seconds to answer.
bool connectsRemote(const QByteArray& host, int port)
{
    addrinfo hints {};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (::getaddrinfo(host.constData(), QByteArray::number(port).constData(), &hints, &found) != 0)
        return false;
    bool connected = false;
    for (addrinfo* a = found; a && !connected; a = a->ai_next) {
        const int fd = ::socket(a->ai_family, a->ai_socktype | SOCK_CLOEXEC | SOCK_NONBLOCK, a->ai_protocol);
        if (fd < 0)
            continue;
        if (::connect(fd, a->ai_addr, a->ai_addrlen) == 0) {
            connected = true;
        } else if (errno == EINPROGRESS) {
            pollfd waiting { fd, POLLOUT, 0 };
            int error = 0;
            socklen_t size = sizeof error;
            connected = ::poll(&waiting, 1, 2000) == 1 && ::getsockopt(fd, SOL_SOCKET, SO_ERROR, &error, &size) == 0
                && error == 0;
        }
        ::close(fd);
    }
    ::freeaddrinfo(found);
    return connected;
}

// DISPLAY is [host]:number[.screen].
bool x11Answers(const QByteArray& display)
{
    const qsizetype colon = display.lastIndexOf(':');
    if (colon < 0)
        return false;
    const QByteArray host = display.left(colon);
    QByteArray number = display.mid(colon + 1);
    number.truncate(number.indexOf('.') < 0 ? number.size() : number.indexOf('.'));
    bool ok = false;
    const int n = number.toInt(&ok);
    if (!ok || n < 0)
        return false;
    if (host.isEmpty() || host == "unix") {
        const QByteArray socket = "/tmp/.X11-unix/X" + number;
        return connectsLocal(socket, true) || connectsLocal(socket, false);
    }
    return connectsRemote(host, 6000 + n);
}

bool waylandAnswers(const QByteArray& display)
{
    if (display.startsWith('/'))
        return connectsLocal(display, false);
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    return !runtime.isEmpty() && connectsLocal(runtime + '/' + display, false);
}

} // namespace

bool DisplayAnswers()
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    const QByteArray x11 = qgetenv("DISPLAY");
    const QByteArray wayland = qgetenv("WAYLAND_DISPLAY");
    if (platform.startsWith("xcb"))
        return x11Answers(x11);
    if (platform.startsWith("wayland"))
        return waylandAnswers(wayland.isEmpty() ? QByteArray("wayland-0") : wayland);
    if (!platform.isEmpty())
        return true; // offscreen and the like: nothing to reach
    return (!x11.isEmpty() && x11Answers(x11)) || (!wayland.isEmpty() && waylandAnswers(wayland));
}

} // namespace platform
