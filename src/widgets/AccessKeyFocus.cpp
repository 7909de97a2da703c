// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/AccessKeyFocus.h"

#include <QAbstractButton>
#include <QApplication>
#include <QShortcutEvent>

namespace {

class FocusBeforeClick : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Shortcut && !static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
            auto* button = qobject_cast<QAbstractButton*>(watched);
            if (button && button->isEnabled() && button->focusPolicy() != Qt::NoFocus)
                button->setFocus(Qt::ShortcutFocusReason);
        }
        return false;
    }
};

} // namespace

void AccessKeyFocus::Install()
{
    static FocusBeforeClick* filter = nullptr;
    if (!filter) {
        filter = new FocusBeforeClick(qApp);
        qApp->installEventFilter(filter);
    }
}
