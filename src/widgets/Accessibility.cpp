// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/Accessibility.h"

#include <QTimer>
#include <QWidget>

ClickableAccessible::ClickableAccessible(
    QWidget* control, std::function<void()> pressed, std::function<QString()> nameWhenUnnamed)
    : QAccessibleWidget(control, QAccessible::Button)
    , press(std::move(pressed))
    , fallbackName(std::move(nameWhenUnnamed))
{
}

QString ClickableAccessible::text(QAccessible::Text kind) const
{
    QString text = QAccessibleWidget::text(kind);
    if (kind == QAccessible::Name && text.isEmpty() && fallbackName)
        text = fallbackName();
    return text;
}

QStringList ClickableAccessible::actionNames() const
{
    return QStringList(pressAction()) + QAccessibleWidget::actionNames();
}

void ClickableAccessible::doAction(const QString& action)
{
    // After the reply: a click that opens a modal window would keep the assistive tool waiting
    // for an answer until the window closed.
    if (action == pressAction())
        QTimer::singleShot(0, widget(), [click = press] { click(); });
    else
        QAccessibleWidget::doAction(action);
}

QString SpokenCaption(const QString& caption)
{
    QString spoken = caption;
    spoken.remove(QLatin1Char('&'));
    spoken = spoken.trimmed();
    while (spoken.endsWith(QLatin1Char(':')))
        spoken.chop(1);
    return spoken.trimmed();
}

QString ActionOnBox(const QString& action, const QString& boxCaption)
{
    return SpokenCaption(action) + QStringLiteral(" - ") + SpokenCaption(boxCaption);
}

void SetTabOrder(std::initializer_list<QWidget*> order)
{
    QWidget* previous = nullptr;
    for (QWidget* w : order) {
        if (previous)
            QWidget::setTabOrder(previous, w);
        previous = w;
    }
}
