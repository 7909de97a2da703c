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

// The classic flags of a box: MB_OK 0, MB_OKCANCEL 1 and MB_YESNO 4 are its buttons;
// MB_ICONERROR 16, MB_ICONQUESTION 32, MB_ICONWARNING 48 and MB_ICONINFORMATION 64 its icon;
// MB_DEFBUTTON2 256 makes the second button the default.
int ClassicFlags(const MessageStyle& style)
{
    static const int buttons[] = { 0, 1, 4 };
    static const int icons[] = { 0, 16, 32, 48, 64 };
    return buttons[static_cast<int>(style.buttons)] + icons[static_cast<int>(style.icon)]
        + (style.defaultButton == MessageDefault::SecondButton ? 256 : 0);
}

MessageAnswer loggedAnswer(const MessageBoxCall& call)
{
    static QStringList answers
        = QString::fromLocal8Bit(qgetenv("TOLVANE_MSGBOX_ANSWERS")).split(QLatin1Char(','), Qt::SkipEmptyParts);
    const MessageAnswer answer
        = answers.isEmpty() ? DefaultAnswer(call.flags) : static_cast<MessageAnswer>(answers.takeFirst().toInt());
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

MessageAnswer DefaultAnswer(int flags)
{
    using enum MessageAnswer;
    const int buttons = flags & 7;
    const int defaultButton = (flags >> 8) & 3;
    // By the buttons of the flags: OK; OK, Cancel; Abort, Retry, Ignore; Yes, No, Cancel;
    // Yes, No; Retry, Cancel.
    static const MessageAnswer choices[6][3] = { { Ok, Ok, Ok }, { Ok, Cancel, Cancel }, { Abort, Retry, Ignore },
        { Yes, No, Cancel }, { Yes, No, No }, { Retry, Cancel, Cancel } };
    if (buttons > 5)
        return Ok;
    return choices[buttons][defaultButton > 2 ? 0 : defaultButton];
}

void SetMessageBoxBackend(MessageBoxBackend b)
{
    backend() = std::move(b);
}

MessageAnswer ShowMessage(const QString& text, MessageStyle style, const QString& title)
{
    const int flags = ClassicFlags(style);
    const MessageBoxCall call { text, flags, title.isEmpty() ? AppTitle() : title };
    if (!qEnvironmentVariableIsEmpty("TOLVANE_MSGBOX_LOG"))
        return loggedAnswer(call);
    if (backend())
        return backend()(call);
    std::fprintf(stderr, "%s: %s\n", qPrintable(call.title), qPrintable(call.text));
    return DefaultAnswer(flags);
}

} // namespace platform
