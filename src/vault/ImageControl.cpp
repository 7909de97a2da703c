#include "vault/ImageControl.h"

#include <QIcon>
#include <QMouseEvent>

ImageControl::ImageControl(QWidget* parent)
    : QLabel(parent)
{
    setMouseTracking(true);
    setAlignment(Qt::AlignCenter);
}

void ImageControl::SetPicture(const QIcon& icon)
{
    picture = icon;
    setPixmap(picture.pixmap(size()));
}

void ImageControl::mouseMoveEvent(QMouseEvent* event)
{
    QLabel::mouseMoveEvent(event);
    Q_EMIT MouseMove();
}

void ImageControl::mouseReleaseEvent(QMouseEvent* event)
{
    QLabel::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Q_EMIT Click();
}

void ImageControl::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    if (!picture.isNull())
        setPixmap(picture.pixmap(size()));
}
