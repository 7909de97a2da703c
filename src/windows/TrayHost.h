// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The host window that the user is not meant to see (the original's frmContainer). It owns the
// notification-area icon and hosts its pop-up menu; its load takes the vault window's icon
// (which creates and loads the vault window) and gives a profile its default options; its
// unload empties the clipboard when `s3` asks for it. It lives until the run ends.
#include "platform/NotifyIcon.h"

#include <QWidget>

#include <functional>

class QMenu;

class TrayHost : public QWidget
{
    Q_OBJECT
public:
    // What the host takes from the vault window, which lies above it: the icon (asking for it
    // loads the window), the pop-up menu (asked at each use), and where that menu stands when
    // there is no notification area (the window's menu bar).
    struct VaultSide
    {
        std::function<QIcon()> icon;
        std::function<QMenu*()> menu;
        std::function<void()> showMenuInWindow;
    };
    static void ConnectVault(VaultSide side);

    static TrayHost* Instance();
    static TrayHost* Loaded();
    static void Unload();

    // False when the desktop has no notification area: then the pop-up menu stands in the
    // vault window's menu bar, and closing the vault window ends the run.
    bool IconShown() const { return iconShown; }
    // True once the load has put the pop-up menu in the vault window's bar: a vault window
    // loaded again puts it there too.
    bool MenuInWindow() const { return menuInWindow; }

    // The icon's messages as the original receives them: a mouse move whose X, in the window's
    // scale (twips), is the message (514 left up, 515 left double click, 517 right up).
    void iconMessage(int x);

    // "Tolvane ", CR LF, the profile, a zero, blanks: a field of 64 characters.
    static QString TipText(const QString& profile);

protected:
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    TrayHost();
    void load();
    void clearClipboardIfAsked();

    platform::TrayIconRecord iconRecord;
    bool iconShown = false;
    bool menuInWindow = false;
};
