// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The host window that the user is not meant to see (the original's frmContainer). It owns the
// notification-area icon and hosts its pop-up menu; its load takes the vault window's icon
// (so the vault window is loaded first) and gives a profile its default options; its unload
// empties the clipboard when `s3` asks for it. It lives until the run ends.
#include "platform/NotifyIcon.h"

#include <QMenu>
#include <QPointer>
#include <QWidget>

class Vault;

class TrayHost : public QWidget
{
    Q_OBJECT
public:
    // The one host of a run, loaded with the vault window's icon at its first use. Nothing
    // happens at the icon while that vault is being saved.
    static TrayHost* Open(const Vault& vault, const QIcon& icon);
    static TrayHost* Loaded();
    static void Unload();

    // The pop-up menu of the vault window loaded now.
    void UseMenu(QMenu* menu) { popupMenu = menu; }

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

Q_SIGNALS:
    // A message from the icon needs the vault window's menu: whoever opened the host loads that
    // window if it is not loaded (every message does, whatever it asks for) and hands its menu
    // over through UseMenu.
    void menuWanted();

protected:
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    explicit TrayHost(const Vault& vault);
    void load(const QIcon& icon);
    void clearClipboardIfAsked();

    const Vault& vault;
    QPointer<QMenu> popupMenu;
    platform::TrayIconRecord iconRecord;
    bool iconShown = false;
    bool menuInWindow = false;
};
