// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/MessageBox.h"

#include <QFile>
#include <QStringList>

#include <cstdio>

namespace platform {
namespace {

MessageBoxBackend& backend()
{
    static MessageBoxBackend b;
    return b;
}

int loggedAnswer(const MessageBoxCall& call)
{
    static QStringList answers
        = QString::fromLocal8Bit(qgetenv("TOLVANE_MSGBOX_ANSWERS")).split(QLatin1Char(','), Qt::SkipEmptyParts);
    const int answer = answers.isEmpty() ? DefaultAnswer(call.flags) : answers.takeFirst().toInt();
    QFile log(QString::fromLocal8Bit(qgetenv("TOLVANE_MSGBOX_LOG")));
    if (log.open(QIODevice::Append)) {
        QString text = call.text;
        text.replace(QLatin1Char('\r'), QStringLiteral("\\r")).replace(QLatin1Char('\n'), QStringLiteral("\\n"));
        log.write(QStringLiteral("%1|%2|%3\n").arg(call.flags).arg(call.title, text).toUtf8());
    }
    return answer;
}

} // namespace

QString AppTitle()
{
    return QStringLiteral("Tolvane");
}

QString ScreenLines(const QString& text)
{
    QString lines = text;
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return lines;
}

int DefaultAnswer(int flags)
{
    const int buttons = flags & 7;
    const int defaultButton = (flags >> 8) & 3;
    static const int choices[6][3]
        = { { IDOK, IDOK, IDOK }, { IDOK, IDCANCEL, IDCANCEL }, { IDABORT, IDRETRY, IDIGNORE },
              { IDYES, IDNO, IDCANCEL }, { IDYES, IDNO, IDNO }, { IDRETRY, IDCANCEL, IDCANCEL } };
    if (buttons > 5)
        return IDOK;
    return choices[buttons][defaultButton > 2 ? 0 : defaultButton];
}

void SetMessageBoxBackend(MessageBoxBackend b)
{
    backend() = std::move(b);
}

int MsgBox(const QString& text, int flags, const QString& title)
{
    const MessageBoxCall call { text, flags, title.isEmpty() ? AppTitle() : title };
    if (!qEnvironmentVariableIsEmpty("TOLVANE_MSGBOX_LOG"))
        return loggedAnswer(call);
    if (backend())
        return backend()(call);
    std::fprintf(stderr, "%s: %s\n", qPrintable(call.title), qPrintable(call.text));
    return DefaultAnswer(flags);
}

} // namespace platform
