// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What assistive tools (screen readers, AT-SPI) see of the program's own controls: the
// clickable pictures and the skinned buttons are push buttons whose press action clicks them,
// and a caption read out as a name loses its mnemonic and its colon.
#include <QAccessibleWidget>

#include <functional>
#include <initializer_list>

class ClickableAccessible : public QAccessibleWidget
{
public:
    ClickableAccessible(QWidget* control, std::function<void()> press, std::function<QString()> fallbackName = {});
    QString text(QAccessible::Text kind) const override;
    QStringList actionNames() const override;
    void doAction(const QString& action) override;

private:
    std::function<void()> press;
    std::function<QString()> fallbackName;
};

// "&Password:" read out as "Password".
QString SpokenCaption(const QString& caption);

// A picture's name: what it does, and the caption of the box it acts on ("Copy - Password").
QString ActionOnBox(const QString& action, const QString& boxCaption);

// Puts the controls one after the other in the order of the Tab key (a box with an editor inside
// is named by the box: the toolkit puts its editor, where the focus goes, in its place).
void SetTabOrder(std::initializer_list<QWidget*> order);
