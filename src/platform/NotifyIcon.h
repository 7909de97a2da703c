// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The notification area. The icon's mouse messages reach its window as the original's do: a
// mouse move over the window whose X, in pixels, is the message (514 left button up, 515 left
// double click, 517 right button up).
#include <QIcon>
#include <QString>

class QWidget;

namespace platform {

constexpr int NIM_ADD = 0;
constexpr int WM_MOUSEMOVE = 512;
constexpr int WM_LBUTTONUP = 514;
constexpr int WM_LBUTTONDBLCLK = 515;
constexpr int WM_RBUTTONUP = 517;

struct NOTIFYICONDATA
{
    int cbSize = 88;
    QWidget* hWnd = nullptr;
    int uID = 1;
    int uFlags = 7; // message, icon and tip are valid
    int uCallbackMessage = WM_MOUSEMOVE;
    QIcon hIcon;
    QString szTip; // a field of 64 characters; shown up to its first zero
};

// Adds the icon (operation NIM_ADD). 0 when there is no notification area to hold it. The icon
// stays until the process ends.
int Shell_NotifyIconA(int operation, const NOTIFYICONDATA& data);

// The tip the icon shows, as the notification area shows it; empty without an icon.
QString NotifyIconTip();

int SetForegroundWindow(QWidget* window);

} // namespace platform
