// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/TrayHost.h"

#include "widgets/WindowSlot.h"

#include "core/DataRoot.h"
#include "core/FileExist.h"
#include "core/ProfileFiles.h"
#include "core/Vault.h"
#include "platform/Clipboard.h"
#include "platform/MessageBox.h"
#include "platform/Twips.h"

#include <QCursor>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>

namespace {

WindowSlot<TrayHost>& slot()
{
    static WindowSlot<TrayHost> form;
    return form;
}

} // namespace

TrayHost* TrayHost::Open(const Vault& vault, const QIcon& icon)
{
    return slot().Touch([&vault] { return new TrayHost(vault); }, [&icon](TrayHost* form) { form->load(icon); });
}

TrayHost* TrayHost::Loaded()
{
    return slot().Loaded();
}

void TrayHost::Unload()
{
    TrayHost* form = slot().Take();
    if (!form)
        return;
    form->clearClipboardIfAsked();
    form->deleteLater();
}

TrayHost::TrayHost(const Vault& vault)
    : vault(vault)
{
    setObjectName(QStringLiteral("TrayHost"));
    // Small enough to stay wholly outside the screen at -1000 twips when it is shown.
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    // The icon's messages come as moves without a button.
    setMouseTracking(true);
    resize(Twips(600), Twips(600));
}

QString TrayHost::TipText(const QString& profile)
{
    QString text = QStringLiteral("Tolvane \r\n") + profile + QChar(0);
    return text.leftJustified(64, QLatin1Char(' '), true);
}

void TrayHost::load(const QIcon& icon)
{
    move(-Twips(1000), -Twips(1000));
    // The vault window's icon: that window's whole load has run, before the options below are
    // looked at.
    iconRecord.window = this;
    iconRecord.icon = icon;
    setWindowIcon(iconRecord.icon);
    iconRecord.tip = TipText(CurrentProfile());
    iconShown = platform::AddTrayIcon(iconRecord) != 0;
    // Without a notification area the pop-up menu would be out of reach: it goes to the vault
    // window's menu bar.
    menuInWindow = !iconShown;
    const QString cfg = ProfileFile(QStringLiteral("cfg.txt"));
    if (!FileExist(cfg)) {
        for (Option option : AllOptions)
            WriteIni(Keys::setts, Keys::option(option), QStringLiteral("1"), cfg);
    }
}

void TrayHost::clearClipboardIfAsked()
{
    if (GetIni(Keys::setts, Keys::option(Option::ClearClipboardOnClose), ProfileFile(QStringLiteral("cfg.txt")))
        == QLatin1String("1"))
        platform::ClipboardClear();
}

void TrayHost::mouseMoveEvent(QMouseEvent* event)
{
    iconMessage(PixelsToTwips(qRound(event->position().x())));
}

void TrayHost::iconMessage(int x)
{
    // The scale is twips: the message is X over the twips of a pixel.
    const int message = qRound(x / TwipsPerPixel());
    if (vault.saveRunning())
        return; // the menu would load the vault window anew in the middle of its save
    Q_EMIT menuWanted();
    QMenu* menu = popupMenu;
    if (!menu)
        return;
    switch (message) {
    case platform::TrayLeftButtonUp:
        menu->popup(QCursor::pos());
        break;
    case platform::TrayLeftDoubleClick:
        setWindowState(Qt::WindowNoState);
        platform::BringToFront(this);
        show();
        break;
    case platform::TrayRightButtonUp:
        // Only the right button brings the host window to the front first.
        platform::BringToFront(this);
        menu->popup(QCursor::pos());
        break;
    default:
        break;
    }
}
