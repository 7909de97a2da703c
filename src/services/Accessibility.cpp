#include "services/Accessibility.h"

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
    if (action == pressAction())
        press();
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
