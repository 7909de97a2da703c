#pragma once
// The host window that the user is not meant to see. It owns the notification-area icon and
// hosts its pop-up menu; its load creates and loads the vault window and gives a profile its
// default options; its unload empties the clipboard when `s3` asks for it. It lives until the
// run ends.
#include "platform/NotifyIcon.h"

#include <QWidget>

class TrayHost : public QWidget
{
    Q_OBJECT
public:
    static TrayHost* Instance();
    static TrayHost* Loaded();
    static void Unload();

    void load();
    void onUnload();
    // The icon's messages: X is the message, in the window's scale (twips).
    void iconMessage(int button, int shift, int x, int y);

    // False when the desktop has no notification area: then the pop-up menu stands in the
    // vault window's menu bar, and closing the vault window ends the run.
    bool IconShown() const { return iconShown; }
    platform::NOTIFYICONDATA iconRecord;

    // "Tolvane ", CR LF, the profile, a zero, blanks: a field of 64 characters.
    static QString TipText(const QString& profile);
    QString tip;

protected:
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    TrayHost();
    bool iconShown = false;
};
