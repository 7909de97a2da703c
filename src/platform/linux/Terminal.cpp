// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Terminal.h"

#include <QFile>

#include <cstdio>
#include <string>
#include <termios.h>
#include <unistd.h>

namespace platform {

std::optional<QString> ReadSecretLine(const QString& prompt, bool* tooLong)
{
    if (tooLong)
        *tooLong = false;
    const bool terminal = ::isatty(STDIN_FILENO) == 1;
    termios before {};
    if (terminal) {
        std::fputs(prompt.toLocal8Bit().constData(), stderr);
        std::fflush(stderr);
        if (::tcgetattr(STDIN_FILENO, &before) == 0) {
            termios quiet = before;
            quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
            quiet.c_lflag |= ECHONL;
            ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet);
        }
    }
    std::string line;
    bool ended = true;
    for (int c = std::getchar(); c != EOF; c = std::getchar()) {
        ended = false;
        if (c == '\n')
            break;
        if (static_cast<qsizetype>(line.size()) >= LongestSecretLine) {
            if (tooLong)
                *tooLong = true;
            ended = true; // nothing of it is taken
            break;
        }
        line += static_cast<char>(c);
    }
    if (terminal)
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &before);
    if (ended)
        return std::nullopt;
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return QString::fromLocal8Bit(line.data(), static_cast<qsizetype>(line.size()));
}

bool ReadStandardInput(QByteArray& input, qint64 limit)
{
    QFile in;
    if (!in.open(stdin, QIODevice::ReadOnly))
        return false;
    input.clear();
    for (;;) {
        const QByteArray chunk = in.read(limit + 1 - input.size());
        if (chunk.isEmpty()) // standard input blocks: nothing more is its end
            break;
        input += chunk;
        if (input.size() > limit)
            return false;
    }
    return true;
}

} // namespace platform
