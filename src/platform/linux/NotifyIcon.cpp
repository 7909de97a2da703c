// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/NotifyIcon.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QSystemTrayIcon>
#include <QWidget>

namespace platform {
namespace {

struct Tray
{
    QSystemTrayIcon* icon = nullptr;
    QPointer<QWidget> window;
};

Tray& tray()
{
    static Tray t;
    return t;
}

// The icon's events as the window's mouse moves, X being the message.
void Deliver(int message)
{
    QWidget* window = tray().window;
    if (!window)
        return;
    QMouseEvent move(
        QEvent::MouseMove, QPointF(message, 0), QPointF(message, 0), Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &move);
}

} // namespace

int AddTrayIcon(const TrayIconRecord& record)
{
    if (!QSystemTrayIcon::isSystemTrayAvailable())
        return 0;
    Tray& t = tray();
    t.window = record.window;
    if (!t.icon) {
        // Owned by nobody: it outlives the window, as the original's icon does.
        t.icon = new QSystemTrayIcon;
        QObject::connect(t.icon, &QSystemTrayIcon::activated, [](QSystemTrayIcon::ActivationReason reason) {
            switch (reason) {
            case QSystemTrayIcon::Trigger:
                Deliver(TrayLeftButtonUp);
                break;
            case QSystemTrayIcon::DoubleClick:
                Deliver(TrayLeftDoubleClick);
                break;
            case QSystemTrayIcon::Context:
                Deliver(TrayRightButtonUp);
                break;
            default:
                break;
            }
        });
    }
    t.icon->setIcon(record.icon);
    QString tip = record.tip.left(64);
    tip = tip.left(tip.indexOf(QChar(0)));
    tip.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    t.icon->setToolTip(tip);
    t.icon->show();
    return 1;
}

void BringToFront(QWidget* window)
{
    if (!window)
        return;
    window->raise();
    window->activateWindow();
}

} // namespace platform
