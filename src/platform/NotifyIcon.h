// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The notification area. The icon's mouse messages reach its window as the original's do: a
// mouse move over the window whose X, in pixels, is the message (514 left button up, 515 left
// double click, 517 right button up).
#include <QIcon>
#include <QString>

class QWidget;

namespace platform {

constexpr int TrayMouseMove = 512; // WM_MOUSEMOVE
constexpr int TrayLeftButtonUp = 514; // WM_LBUTTONUP
constexpr int TrayLeftDoubleClick = 515; // WM_LBUTTONDBLCLK
constexpr int TrayRightButtonUp = 517; // WM_RBUTTONUP

// An icon of the notification area as the window that owns it describes it (NOTIFYICONDATA).
struct TrayIconRecord
{
    QWidget* window = nullptr;
    int callbackMessage = TrayMouseMove;
    QIcon icon;
    QString tip; // a field of 64 characters; shown up to its first zero
};

// Adds the icon (Shell_NotifyIconA with NIM_ADD). 0 when there is no notification area to hold it. The icon
// stays until the process ends.
int AddTrayIcon(const TrayIconRecord& record);

// Brings the window to the front and gives it the keyboard (SetForegroundWindow).
void BringToFront(QWidget* window);

} // namespace platform
