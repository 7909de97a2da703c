#include "services/SkinnedButton.h"

#include "platform/Twips.h"
#include "services/Accessibility.h"
#include "services/ProgramPictures.h"

#include <QFocusEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>

QVariant PropertyBag::ReadProperty(const QString& name, const QVariant& defaultValue) const
{
    for (const auto& [key, value] : values) {
        if (key == name)
            return value;
    }
    return defaultValue;
}

void PropertyBag::WriteProperty(const QString& name, const QVariant& value, const QVariant& defaultValue)
{
    values.removeIf([&name](const QPair<QString, QVariant>& stored) { return stored.first == name; });
    if (value != defaultValue)
        values.append({ name, value });
}

QStringList PropertyBag::Names() const
{
    QStringList names;
    for (const auto& stored : values)
        names.append(stored.first);
    return names;
}

namespace {

// The runtime's mouse button values.
constexpr int vbLeftButton = 1;
constexpr int vbRightButton = 2;
constexpr int vbMiddleButton = 4;

int ButtonValue(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return vbLeftButton;
    case Qt::RightButton:
        return vbRightButton;
    case Qt::MiddleButton:
        return vbMiddleButton;
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

// A toggle tells assistive tools whether it is checked.
class CommandAccessible : public ClickableAccessible
{
public:
    explicit CommandAccessible(SkinnedButton* control)
        : ClickableAccessible(
            control, [control] { control->UserControl_Click(); }, [control] { return control->Caption(); })
    {
    }
    // The backgrounds, frame parts, icon and caption are the button's look, not controls.
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessible::State state() const override
    {
        QAccessible::State state = ClickableAccessible::state();
        const auto* control = static_cast<const SkinnedButton*>(widget());
        state.checkable = control->CanBeChecked();
        state.checked = control->CanBeChecked() && control->IsChecked();
        return state;
    }
};

QAccessibleInterface* CommandAccessibleFactory(const QString& className, QObject* object)
{
    if (className == QLatin1String("SkinnedButton") && object && object->isWidgetType())
        return new CommandAccessible(static_cast<SkinnedButton*>(object));
    return nullptr;
}

// The frame parts at design time: 30 twips thick, the top and bottom ones as wide as the
// backgrounds, the left and right ones as high as the control.
constexpr int frameThickness = 30;
constexpr int backgroundWidth = 2250;
constexpr int controlHeight = 375;

} // namespace

SkinnedButton::SkinnedButton(QWidget* parent, const PropertyBag& stored)
    : QWidget(parent)
{
    static const bool accessibleInstalled = (QAccessible::installFactory(&CommandAccessibleFactory), true);
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
    PicNormal = hiddenPicture("PicNormal", ButtonBackground(ButtonLook::Normal, scale));
    PicOver = hiddenPicture("PicOver", ButtonBackground(ButtonLook::Over, scale));
    PicDown = hiddenPicture("PicDown", ButtonBackground(ButtonLook::Down, scale));

    auto edge = [this, scale](const char* name, FrameEdge which, int left, int top, int width, int height) {
        auto* part = Placed(new QLabel(this), name, left, top, width, height);
        const bool across = which == FrameEdge::Up || which == FrameEdge::Bottom;
        part->setPixmap(ButtonFrameEdge(which, Twips(across ? width : height), scale));
        part->setAttribute(Qt::WA_TransparentForMouseEvents);
        return part;
    };
    picUp = edge("picUp", FrameEdge::Up, 0, 0, backgroundWidth, frameThickness);
    picBottom
        = edge("picBottom", FrameEdge::Bottom, 0, controlHeight - frameThickness, backgroundWidth, frameThickness);
    picLeft = edge("picLeft", FrameEdge::Left, 0, 0, frameThickness, controlHeight);
    picRight = edge("picRight", FrameEdge::Right, controlHeight - frameThickness, 0, frameThickness, controlHeight);
    ShowFrame(false); // as at design time

    Image1 = Placed(new QLabel(this), "Image1", 50, 60, 240, 240);
    Image1->setAttribute(Qt::WA_TransparentForMouseEvents);
    Label1 = Placed(new QLabel(this), "Label1", 345, 60, 0, 255);
    Label1->setAttribute(Qt::WA_TransparentForMouseEvents);

    Timer1 = Named(new QTimer(this), "Timer1");
    Timer1->setInterval(10);
    connect(Timer1, &QTimer::timeout, this, &SkinnedButton::Timer1_Timer);

    UserControl_Initialize();
    ReadProperties(stored);
    Timer1->start();
}

QIcon SkinnedButton::PictureNormal() const
{
    return pictureNormal;
}

void SkinnedButton::SetPictureNormal(const QIcon& picture)
{
    pictureNormal = picture;
    ShowIcon();
    Q_EMIT PropertyChanged(QStringLiteral("PictureNormal"));
}

QString SkinnedButton::Caption() const
{
    return Label1->text();
}

void SkinnedButton::SetCaption(const QString& caption)
{
    Label1->setText(caption);
    Label1->adjustSize(); // the caption sizes itself
    Q_EMIT PropertyChanged(QStringLiteral("CAP"));
}

bool SkinnedButton::Enabled() const
{
    return enabled;
}

void SkinnedButton::SetEnabled(bool value)
{
    enabled = value;
    Q_EMIT PropertyChanged(QStringLiteral("ENAB"));
}

bool SkinnedButton::CanBeChecked() const
{
    return canBeChecked;
}

void SkinnedButton::SetCanBeChecked(bool value)
{
    canBeChecked = value;
    Q_EMIT PropertyChanged(QStringLiteral("CHEK"));
}

bool SkinnedButton::IsChecked() const
{
    return isChecked;
}

void SkinnedButton::SetIsChecked(bool value)
{
    isChecked = value;
    Q_EMIT PropertyChanged(QStringLiteral("CCHEK"));
}

void SkinnedButton::ReadProperties(const PropertyBag& bag)
{
    enabled = bag.ReadProperty(QStringLiteral("ENAB"), true).toBool();
    canBeChecked = bag.ReadProperty(QStringLiteral("CHEK"), false).toBool();
    isChecked = bag.ReadProperty(QStringLiteral("CCHEK"), false).toBool();
    // A picture is an icon; the empty text read by default leaves none.
    pictureNormal = bag.ReadProperty(QStringLiteral("PictureNormal"), QString()).value<QIcon>();
    ShowIcon();
    Label1->setText(bag.ReadProperty(QStringLiteral("CAP"), QString()).toString());
    Label1->adjustSize();
}

void SkinnedButton::WriteProperties(PropertyBag& bag) const
{
    bag.WriteProperty(QStringLiteral("ENAB"), enabled, true);
    bag.WriteProperty(QStringLiteral("PictureNormal"),
        pictureNormal.isNull() ? QVariant(QString()) : QVariant::fromValue(pictureNormal), QString());
    bag.WriteProperty(QStringLiteral("CHEK"), canBeChecked, false);
    bag.WriteProperty(QStringLiteral("CCHEK"), isChecked, false);
    bag.WriteProperty(QStringLiteral("CAP"), Caption(), QString());
}

void SkinnedButton::Timer1_Timer()
{
    setEnabled(enabled);
    if (canBeChecked) {
        ShowBackground(PicNormal);
        ShowFrame(isChecked);
    }
    Timer1->stop();
}

void SkinnedButton::UserControl_Initialize()
{
    ShowBackground(PicNormal);
    enabled = true;
    canBeChecked = false;
    isChecked = false;
}

void SkinnedButton::UserControl_EnterFocus()
{
    ShowBackground(PicOver);
    ShowFrame(true);
}

void SkinnedButton::UserControl_ExitFocus()
{
    ShowBackground(PicNormal);
    ShowFrame(canBeChecked && isChecked);
}

void SkinnedButton::UserControl_MouseDown(int button)
{
    if (button != vbLeftButton)
        return;
    ShowBackground(PicDown);
    ShowFrame(true);
}

void SkinnedButton::UserControl_MouseUp()
{
    ShowBackground(PicOver);
}

void SkinnedButton::UserControl_Click()
{
    if (canBeChecked)
        isChecked = !isChecked;
    // The host may unload its window here; nothing of the control is touched after it.
    Q_EMIT Click();
}

bool SkinnedButton::FrameShown() const
{
    return !picUp->isHidden();
}

void SkinnedButton::ShowBackground(const QLabel* background)
{
    picture = background;
    update();
}

void SkinnedButton::ShowFrame(bool shown)
{
    for (QLabel* part : { picUp, picBottom, picLeft, picRight })
        part->setVisible(shown);
}

void SkinnedButton::ShowIcon()
{
    Image1->setPixmap(pictureNormal.isNull()
            ? QPixmap()
            : pictureNormal.pixmap(Image1->size(), devicePixelRatioF(), isEnabled() ? QIcon::Normal : QIcon::Disabled));
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
    UserControl_MouseDown(ButtonValue(event->button()));
}

void SkinnedButton::mouseDoubleClickEvent(QMouseEvent*)
{
    // The second press of a double click is a DblClick, which the control does not handle: no
    // MouseDown, and its release raises no Click.
    pressed = false;
}

void SkinnedButton::mouseReleaseEvent(QMouseEvent* event)
{
    const bool click = pressed && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint());
    pressed = false;
    UserControl_MouseUp();
    if (click)
        UserControl_Click();
}

void SkinnedButton::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    if (MovesBetweenControls(event))
        UserControl_EnterFocus();
}

void SkinnedButton::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    if (MovesBetweenControls(event))
        UserControl_ExitFocus();
}

void SkinnedButton::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (height() != Twips(controlHeight))
        resize(width(), Twips(controlHeight));
    picRight->move(Twips(PixelsToTwips(width()) - frameThickness), picRight->y());
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
    PropertyBag design;
    design.WriteProperty(QStringLiteral("PictureNormal"), QVariant::fromValue(picture), QString());
    return Placed(new SkinnedButton(parent, design), name, left, top, width, controlHeight);
}
