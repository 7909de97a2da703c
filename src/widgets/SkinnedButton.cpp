// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/SkinnedButton.h"

#include "platform/Twips.h"
#include "widgets/Accessibility.h"
#include "widgets/ProgramPictures.h"

#include <QFocusEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

namespace {

// The runtime's mouse button values.
constexpr int leftButton = 1;
constexpr int rightButton = 2;
constexpr int middleButton = 4;

int ButtonValue(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return leftButton;
    case Qt::RightButton:
        return rightButton;
    case Qt::MiddleButton:
        return middleButton;
    default:
        return 0;
    }
}

// Focus that the window takes back when it is active again, or that a menu borrows, is no
// focus change to the controls.
bool MovesBetweenControls(const QFocusEvent* event)
{
    return event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason;
}

class SkinnedButtonAccessible : public ClickableAccessible
{
public:
    explicit SkinnedButtonAccessible(SkinnedButton* control)
        : ClickableAccessible(
            control, [control] { control->click(); }, [control] { return control->caption(); })
    {
    }
    // The backgrounds, frame parts, icon and caption are the button's look, not controls.
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
};

QAccessibleInterface* SkinnedButtonAccessibleFactory(const QString& className, QObject* object)
{
    if (className == QLatin1String("SkinnedButton") && object && object->isWidgetType())
        return new SkinnedButtonAccessible(static_cast<SkinnedButton*>(object));
    return nullptr;
}

// The frame parts at design time: 30 twips thick, the top and bottom ones as wide as the
// backgrounds, the left and right ones as high as the control.
constexpr int frameThickness = 30;
constexpr int backgroundWidth = 2250;
constexpr int controlHeight = 375;

} // namespace

SkinnedButton::SkinnedButton(QWidget* parent, const QIcon& picture)
    : QWidget(parent)
{
    static const bool accessibleInstalled = (QAccessible::installFactory(&SkinnedButtonAccessibleFactory), true);
    Q_UNUSED(accessibleInstalled);
    // A click gives the focus, as does the mouse passing over; the Tab key passes the button by,
    // since no key clicks it.
    setFocusPolicy(Qt::ClickFocus);
    setMouseTracking(true);

    const qreal scale = devicePixelRatioF();
    auto hiddenPicture = [this](const char* name, const QPixmap& pixmap) {
        auto* part = Named(new QLabel(this), name);
        part->setPixmap(pixmap);
        part->hide();
        return part;
    };
    normalBackground = hiddenPicture("normalBackground", ButtonBackground(ButtonLook::Normal, scale));
    overBackground = hiddenPicture("overBackground", ButtonBackground(ButtonLook::Over, scale));
    downBackground = hiddenPicture("downBackground", ButtonBackground(ButtonLook::Down, scale));

    auto edge = [this, scale](const char* name, FrameEdge which, int left, int top, int width, int height) {
        auto* part = Placed(new QLabel(this), name, left, top, width, height);
        const bool across = which == FrameEdge::Up || which == FrameEdge::Bottom;
        part->setPixmap(ButtonFrameEdge(which, Twips(across ? width : height), scale));
        part->setAttribute(Qt::WA_TransparentForMouseEvents);
        return part;
    };
    frameTop = edge("frameTop", FrameEdge::Up, 0, 0, backgroundWidth, frameThickness);
    frameBottom
        = edge("frameBottom", FrameEdge::Bottom, 0, controlHeight - frameThickness, backgroundWidth, frameThickness);
    frameLeft = edge("frameLeft", FrameEdge::Left, 0, 0, frameThickness, controlHeight);
    frameRight = edge("frameRight", FrameEdge::Right, controlHeight - frameThickness, 0, frameThickness, controlHeight);
    ShowFrame(false); // as at design time

    iconLabel = Placed(new QLabel(this), "iconLabel", 50, 60, 240, 240);
    iconLabel->setAttribute(Qt::WA_TransparentForMouseEvents);
    captionLabel = Placed(new QLabel(this), "captionLabel", 345, 60, 0, 255);
    captionLabel->setAttribute(Qt::WA_TransparentForMouseEvents);

    startTimer = Named(new QTimer(this), "startTimer");
    startTimer->setInterval(10);
    connect(startTimer, &QTimer::timeout, this, &SkinnedButton::applyStoredProperties);

    initialize();
    pictureNormal = picture;
    ShowIcon();
    captionLabel->adjustSize();
    startTimer->start();
}

QString SkinnedButton::caption() const
{
    return captionLabel->text();
}

void SkinnedButton::applyStoredProperties()
{
    setEnabled(true);
    startTimer->stop();
}

void SkinnedButton::initialize()
{
    ShowBackground(normalBackground);
}

void SkinnedButton::showFocus()
{
    ShowBackground(overBackground);
    ShowFrame(true);
}

void SkinnedButton::hideFocus()
{
    ShowBackground(normalBackground);
    ShowFrame(false);
}

void SkinnedButton::pressLook(int button)
{
    if (button != leftButton)
        return;
    ShowBackground(downBackground);
    ShowFrame(true);
}

void SkinnedButton::releaseLook()
{
    ShowBackground(overBackground);
}

void SkinnedButton::click()
{
    // The host may unload its window here; nothing of the control is touched after it.
    Q_EMIT clicked();
}

void SkinnedButton::ShowBackground(const QLabel* background)
{
    picture = background;
    update();
}

void SkinnedButton::ShowFrame(bool shown)
{
    for (QLabel* part : { frameTop, frameBottom, frameLeft, frameRight })
        part->setVisible(shown);
}

void SkinnedButton::ShowIcon()
{
    iconLabel->setPixmap(pictureNormal.isNull() ? QPixmap()
                                                : pictureNormal.pixmap(iconLabel->size(), devicePixelRatioF(),
                                                    isEnabled() ? QIcon::Normal : QIcon::Disabled));
}

void SkinnedButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture->pixmap());
}

void SkinnedButton::mouseMoveEvent(QMouseEvent*)
{
    setFocus(Qt::MouseFocusReason);
}

void SkinnedButton::mousePressEvent(QMouseEvent* event)
{
    pressed = event->button() == Qt::LeftButton;
    pressLook(ButtonValue(event->button()));
}

void SkinnedButton::mouseDoubleClickEvent(QMouseEvent*)
{
    // The second press of a double click is a DblClick, which the control does not handle: no
    // MouseDown, and its release emits no clicked.
    pressed = false;
}

void SkinnedButton::mouseReleaseEvent(QMouseEvent* event)
{
    const bool clicked = pressed && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint());
    pressed = false;
    releaseLook();
    if (clicked)
        click();
}

void SkinnedButton::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    if (MovesBetweenControls(event))
        showFocus();
}

void SkinnedButton::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    if (MovesBetweenControls(event))
        hideFocus();
}

void SkinnedButton::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (height() != Twips(controlHeight))
        resize(width(), Twips(controlHeight));
    frameRight->move(Twips(PixelsToTwips(width()) - frameThickness), frameRight->y());
}

void SkinnedButton::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        ShowIcon();
}

SkinnedButton* PlacedSkinnedButton(
    QWidget* parent, const char* name, const QIcon& picture, int left, int top, int width)
{
    return Placed(new SkinnedButton(parent, picture), name, left, top, width, controlHeight);
}
