// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/ClickablePicture.h"

#include "widgets/Accessibility.h"

#include <QIcon>
#include <QMouseEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

namespace {

QAccessibleInterface* ImageAccessibleFactory(const QString& className, QObject* object)
{
    if (className != QLatin1String("ClickablePicture") || !object || !object->isWidgetType())
        return nullptr;
    auto* image = static_cast<ClickablePicture*>(object);
    // A picture is named where it is made; a link reads its own text.
    return new ClickableAccessible(
        image, [image] { Q_EMIT image->clicked(); }, [image] { return image->text(); });
}

} // namespace

ClickablePicture::ClickablePicture(QWidget* parent)
    : QLabel(parent)
{
    static const bool accessibleInstalled = (QAccessible::installFactory(&ImageAccessibleFactory), true);
    Q_UNUSED(accessibleInstalled);
    setMouseTracking(true);
    setAlignment(Qt::AlignCenter);
}

void ClickablePicture::setPicture(const QIcon& icon)
{
    picture = icon;
    setPixmap(picture.pixmap(size()));
}

void ClickablePicture::setTabStop(bool stop)
{
    setFocusPolicy(stop ? Qt::TabFocus : Qt::NoFocus);
}

void ClickablePicture::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if ((event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier
        && (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter)) {
        Q_EMIT clicked();
        return;
    }
    QLabel::keyPressEvent(event);
}

void ClickablePicture::paintEvent(QPaintEvent* event)
{
    QLabel::paintEvent(event);
    if (!hasFocus())
        return;
    QStylePainter painter(this);
    QStyleOptionFocusRect focus;
    focus.initFrom(this);
    painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
}

void ClickablePicture::mouseMoveEvent(QMouseEvent* event)
{
    QLabel::mouseMoveEvent(event);
    Q_EMIT mouseMoved();
}

void ClickablePicture::mouseReleaseEvent(QMouseEvent* event)
{
    QLabel::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Q_EMIT clicked();
}

void ClickablePicture::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    if (!picture.isNull())
        setPixmap(picture.pixmap(size()));
}
