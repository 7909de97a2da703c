#include "vault/ImageControl.h"

#include "services/Accessibility.h"

#include <QIcon>
#include <QMouseEvent>

namespace {

QAccessibleInterface* ImageAccessibleFactory(const QString& className, QObject* object)
{
    if (className != QLatin1String("ImageControl") || !object || !object->isWidgetType())
        return nullptr;
    auto* image = static_cast<ImageControl*>(object);
    return new ClickableAccessible(image, [image] { Q_EMIT image->Click(); });
}

} // namespace

ImageControl::ImageControl(QWidget* parent)
    : QLabel(parent)
{
    static const bool accessibleInstalled = (QAccessible::installFactory(&ImageAccessibleFactory), true);
    Q_UNUSED(accessibleInstalled);
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
