// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/ProgramPictures.h"

#include "platform/Twips.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <functional>

namespace {

// The colours of every picture: a line, the paper it encloses, and the accent of the mark.
struct Ink
{
    QColor line;
    QColor paper;
    QColor accent;
    QColor warning;
};

const Ink normalInk { QColor(0x17, 0x3e, 0x6e), QColor(0xf4, 0xf7, 0xfb), QColor(0x2f, 0x6f, 0xb3),
    QColor(0xb8, 0x3b, 0x2e) };
const Ink disabledInk { QColor(0x9a, 0xa1, 0xa9), QColor(0xee, 0xef, 0xf0), QColor(0xb4, 0xba, 0xc0),
    QColor(0xb4, 0xba, 0xc0) };

using Drawing = std::function<void(QPainter&, qreal, const Ink&)>;

// An icon painted from its drawing at whatever size and scale it is asked for.
class DrawnIconEngine : public QIconEngine
{
public:
    explicit DrawnIconEngine(Drawing drawing)
        : draw(std::move(drawing))
    {
    }
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const Ink& ink = mode == QIcon::Disabled ? disabledInk : normalInk;
        const qreal side = qMin(rect.width(), rect.height());
        painter->save();
        painter->translate(rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2);
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(ink.line, qMax(1.0, side / 16.0), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(ink.paper);
        draw(*painter, side, ink);
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }
    // Scalable; the sizes are for those who ask for a list (the window manager's icon).
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override
    {
        return { QSize(16, 16), QSize(24, 24), QSize(32, 32), QSize(48, 48), QSize(64, 64), QSize(128, 128),
            QSize(256, 256) };
    }
    QIconEngine* clone() const override { return new DrawnIconEngine(draw); }
    QString key() const override { return QStringLiteral("tolvane-drawn"); }

private:
    Drawing draw;
};

QIcon drawnIcon(Drawing drawing)
{
    return QIcon(new DrawnIconEngine(std::move(drawing)));
}

QPointF at(qreal s, qreal x, qreal y)
{
    return QPointF(s * x, s * y);
}

// A sheet with a folded corner, the base of the document pictures.
void drawSheet(QPainter& p, qreal s, qreal left = 0.2, qreal right = 0.82)
{
    const qreal fold = (right - left) * 0.35;
    QPainterPath page;
    page.moveTo(at(s, left, 0.06));
    page.lineTo(at(s, right - fold, 0.06));
    page.lineTo(at(s, right, 0.06 + fold));
    page.lineTo(at(s, right, 0.94));
    page.lineTo(at(s, left, 0.94));
    page.closeSubpath();
    p.drawPath(page);
    p.drawPolyline(
        QPolygonF({ at(s, right - fold, 0.06), at(s, right - fold, 0.06 + fold), at(s, right, 0.06 + fold) }));
}

// A round badge at the lower right: a plus or a cross in white on the given colour.
void drawBadge(QPainter& p, qreal s, const QColor& colour, bool cross)
{
    p.save();
    p.setPen(Qt::NoPen);
    p.setBrush(colour);
    const QPointF centre = at(s, 0.7, 0.72);
    p.drawEllipse(centre, s * 0.26, s * 0.26);
    p.setPen(QPen(Qt::white, qMax(1.0, s / 12.0), Qt::SolidLine, Qt::RoundCap));
    const qreal arm = s * 0.12;
    p.translate(centre);
    if (cross)
        p.rotate(45);
    p.drawLine(QPointF(-arm, 0), QPointF(arm, 0));
    p.drawLine(QPointF(0, -arm), QPointF(0, arm));
    p.restore();
}

// A curved arrow: a half circle ending in a head, turning back to the left or to the right.
void drawTurnArrow(QPainter& p, qreal s, bool back)
{
    p.save();
    if (!back) {
        p.translate(s, 0);
        p.scale(-1, 1);
    }
    p.setBrush(Qt::NoBrush);
    QPainterPath arc;
    arc.moveTo(at(s, 0.24, 0.4));
    arc.cubicTo(at(s, 0.5, 0.14), at(s, 0.9, 0.26), at(s, 0.86, 0.56));
    arc.cubicTo(at(s, 0.82, 0.8), at(s, 0.6, 0.86), at(s, 0.44, 0.84));
    p.drawPath(arc);
    QPainterPath head;
    head.moveTo(at(s, 0.1, 0.3));
    head.lineTo(at(s, 0.38, 0.22));
    head.lineTo(at(s, 0.3, 0.54));
    head.closeSubpath();
    p.setBrush(p.pen().color());
    p.drawPath(head);
    p.restore();
}

// A key in a shield: the program's mark, drawn as vectors into a square of side `side`.
void drawMark(QPainter& p, qreal side)
{
    p.setRenderHint(QPainter::Antialiasing);
    QPainterPath shield;
    shield.moveTo(side * 0.5, side * 0.06);
    shield.lineTo(side * 0.88, side * 0.2);
    shield.cubicTo(side * 0.88, side * 0.62, side * 0.7, side * 0.84, side * 0.5, side * 0.96);
    shield.cubicTo(side * 0.3, side * 0.84, side * 0.12, side * 0.62, side * 0.12, side * 0.2);
    shield.closeSubpath();
    QLinearGradient fill(0, 0, 0, side);
    fill.setColorAt(0, normalInk.accent);
    fill.setColorAt(1, normalInk.line);
    p.fillPath(shield, fill);
    p.setPen(QPen(Qt::white, side * 0.07, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(side * 0.5, side * 0.36), side * 0.11, side * 0.11);
    p.drawLine(QPointF(side * 0.5, side * 0.47), QPointF(side * 0.5, side * 0.78));
    p.drawLine(QPointF(side * 0.5, side * 0.66), QPointF(side * 0.6, side * 0.66));
    p.drawLine(QPointF(side * 0.5, side * 0.76), QPointF(side * 0.58, side * 0.76));
}

} // namespace

QPixmap SplashPicture(qreal devicePixelRatio)
{
    const QSize logical(Twips(6000), Twips(2400));
    QPixmap pixmap(logical * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    QPainter p(&pixmap);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient back(0, 0, logical.width(), logical.height());
    back.setColorAt(0, normalInk.paper);
    back.setColorAt(1, QColor(0xd9, 0xe4, 0xf1));
    p.fillRect(QRect(QPoint(0, 0), logical), back);
    const qreal side = logical.height() * 0.7;
    p.save();
    p.translate(logical.height() * 0.15, logical.height() * 0.15);
    drawMark(p, side);
    p.restore();
    QFont font = p.font();
    font.setPixelSize(static_cast<int>(logical.height() * 0.3));
    font.setBold(true);
    p.setFont(font);
    p.setPen(normalInk.line);
    p.drawText(QRectF(side * 1.3, 0, logical.width() - side * 1.3, logical.height()), Qt::AlignVCenter | Qt::AlignLeft,
        QStringLiteral("Tolvane"));
    return pixmap;
}

QIcon ProgramIcon()
{
    return drawnIcon([](QPainter& p, qreal s, const Ink&) { drawMark(p, s); });
}

QIcon CopyPicture()
{
    return drawnIcon([](QPainter& p, qreal s, const Ink&) {
        p.drawRoundedRect(QRectF(s * 0.1, s * 0.08, s * 0.5, s * 0.6), s * 0.06, s * 0.06);
        p.drawRoundedRect(QRectF(s * 0.38, s * 0.32, s * 0.5, s * 0.6), s * 0.06, s * 0.06);
    });
}

QIcon DocumentPicture()
{
    return drawnIcon([](QPainter& p, qreal s, const Ink&) {
        drawSheet(p, s);
        for (qreal y : { 0.48, 0.62, 0.76 })
            p.drawLine(at(s, 0.32, y), at(s, 0.7, y));
    });
}

QIcon WebPicture()
{
    return drawnIcon([](QPainter& p, qreal s, const Ink&) {
        const QPointF centre = at(s, 0.5, 0.5);
        p.drawEllipse(centre, s * 0.42, s * 0.42);
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(centre, s * 0.18, s * 0.42);
        p.drawLine(at(s, 0.08, 0.5), at(s, 0.92, 0.5));
        p.drawLine(at(s, 0.5, 0.08), at(s, 0.5, 0.92));
    });
}

QIcon GeneratorPicture()
{
    return drawnIcon([](QPainter& p, qreal s, const Ink& ink) {
        p.drawRoundedRect(QRectF(s * 0.1, s * 0.1, s * 0.8, s * 0.8), s * 0.16, s * 0.16);
        p.setBrush(ink.line);
        const qreal r = s * 0.07;
        for (const QPointF& dot :
            { QPointF(0.32, 0.32), QPointF(0.5, 0.5), QPointF(0.68, 0.68), QPointF(0.68, 0.32), QPointF(0.32, 0.68) })
            p.drawEllipse(at(s, dot.x(), dot.y()), r, r);
    });
}

QIcon NewEntryPicture()
{
    return drawnIcon([](QPainter& p, qreal s, const Ink& ink) {
        drawSheet(p, s, 0.12, 0.72);
        drawBadge(p, s, ink.accent, false);
    });
}

QIcon DeleteEntryPicture()
{
    return drawnIcon([](QPainter& p, qreal s, const Ink& ink) {
        drawSheet(p, s, 0.12, 0.72);
        drawBadge(p, s, ink.warning, true);
    });
}

QIcon PrintPicture()
{
    return drawnIcon([](QPainter& p, qreal s, const Ink& ink) {
        p.drawRect(QRectF(s * 0.28, s * 0.08, s * 0.44, s * 0.3));
        p.drawRoundedRect(QRectF(s * 0.08, s * 0.34, s * 0.84, s * 0.38), s * 0.08, s * 0.08);
        p.drawRect(QRectF(s * 0.28, s * 0.58, s * 0.44, s * 0.34));
        p.drawLine(at(s, 0.38, 0.72), at(s, 0.62, 0.72));
        p.drawLine(at(s, 0.38, 0.82), at(s, 0.56, 0.82));
        p.setPen(Qt::NoPen);
        p.setBrush(ink.accent);
        p.drawEllipse(at(s, 0.8, 0.46), s * 0.045, s * 0.045);
    });
}

QIcon ReportPicture()
{
    return drawnIcon([](QPainter& p, qreal s, const Ink& ink) {
        p.drawRoundedRect(QRectF(s * 0.14, s * 0.06, s * 0.72, s * 0.88), s * 0.06, s * 0.06);
        for (qreal y : { 0.3, 0.5, 0.7 }) {
            p.drawLine(at(s, 0.42, y), at(s, 0.74, y));
            p.save();
            p.setPen(Qt::NoPen);
            p.setBrush(ink.accent);
            p.drawEllipse(at(s, 0.29, y), s * 0.055, s * 0.055);
            p.restore();
        }
    });
}

QIcon CutPicture()
{
    return drawnIcon([](QPainter& p, qreal s, const Ink&) {
        p.drawLine(at(s, 0.3, 0.06), at(s, 0.62, 0.62));
        p.drawLine(at(s, 0.7, 0.06), at(s, 0.38, 0.62));
        p.drawEllipse(at(s, 0.28, 0.76), s * 0.15, s * 0.15);
        p.drawEllipse(at(s, 0.72, 0.76), s * 0.15, s * 0.15);
    });
}

QIcon PastePicture()
{
    return drawnIcon([](QPainter& p, qreal s, const Ink& ink) {
        p.drawRoundedRect(QRectF(s * 0.12, s * 0.14, s * 0.6, s * 0.78), s * 0.08, s * 0.08);
        p.save();
        p.setBrush(ink.accent);
        p.drawRoundedRect(QRectF(s * 0.26, s * 0.06, s * 0.32, s * 0.16), s * 0.05, s * 0.05);
        p.restore();
        p.drawRect(QRectF(s * 0.44, s * 0.4, s * 0.46, s * 0.54));
        p.drawLine(at(s, 0.54, 0.58), at(s, 0.8, 0.58));
        p.drawLine(at(s, 0.54, 0.74), at(s, 0.74, 0.74));
    });
}

QIcon UndoPicture()
{
    return drawnIcon([](QPainter& p, qreal s, const Ink&) { drawTurnArrow(p, s, true); });
}

QIcon RedoPicture()
{
    return drawnIcon([](QPainter& p, qreal s, const Ink&) { drawTurnArrow(p, s, false); });
}

QIcon SettingsPicture()
{
    return drawnIcon([](QPainter& p, qreal s, const Ink&) {
        QPainterPath gear;
        const QPointF centre = at(s, 0.5, 0.5);
        const int teeth = 8;
        for (int i = 0; i < teeth * 4; ++i) {
            // Each tooth: two points out, two points in, around the circle.
            const qreal angle = (i - 0.5) * M_PI / (teeth * 2);
            const qreal radius = s * ((i % 4 < 2) ? 0.44 : 0.32);
            const QPointF point = centre + QPointF(radius * std::cos(angle), radius * std::sin(angle));
            if (i == 0)
                gear.moveTo(point);
            else
                gear.lineTo(point);
        }
        gear.closeSubpath();
        gear.addEllipse(centre, s * 0.13, s * 0.13);
        p.drawPath(gear);
    });
}

QIcon SearchPicture()
{
    return drawnIcon([](QPainter& p, qreal s, const Ink& ink) {
        p.drawEllipse(at(s, 0.42, 0.42), s * 0.28, s * 0.28);
        p.setPen(QPen(ink.line, qMax(1.5, s / 9.0), Qt::SolidLine, Qt::RoundCap));
        p.drawLine(at(s, 0.63, 0.63), at(s, 0.88, 0.88));
    });
}

QPixmap ButtonBackground(ButtonLook look, qreal devicePixelRatio)
{
    const QSize logical(150, 25);
    QPixmap pixmap(logical * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    QPainter p(&pixmap);
    QLinearGradient fill(0, 0, 0, logical.height());
    switch (look) {
    case ButtonLook::Normal: // flat on the window: at rest only the picture shows
        fill.setColorAt(0, QGuiApplication::palette().color(QPalette::Window));
        fill.setColorAt(1, QGuiApplication::palette().color(QPalette::Window));
        break;
    case ButtonLook::Over:
        fill.setColorAt(0, QColor(0xf0, 0xf6, 0xfd));
        fill.setColorAt(1, QColor(0xd3, 0xe3, 0xf6));
        break;
    case ButtonLook::Down:
        fill.setColorAt(0, QColor(0xb9, 0xd0, 0xec));
        fill.setColorAt(1, QColor(0xd6, 0xe4, 0xf5));
        break;
    }
    p.fillRect(QRect(QPoint(0, 0), logical), fill);
    return pixmap;
}

QPixmap ButtonFrameEdge(FrameEdge edge, int length, qreal devicePixelRatio)
{
    const bool across = edge == FrameEdge::Up || edge == FrameEdge::Bottom;
    const QSize logical = across ? QSize(length, 2) : QSize(2, length);
    QPixmap pixmap(logical * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    const QColor outer = normalInk.accent;
    const QColor inner(0xe4, 0xee, 0xfa);
    // The outer line lies on the control's edge: first for the top and left parts, last for the
    // bottom and right ones.
    const bool outerFirst = edge == FrameEdge::Up || edge == FrameEdge::Left;
    QPainter p(&pixmap);
    const QRect first = across ? QRect(0, 0, length, 1) : QRect(0, 0, 1, length);
    const QRect second = across ? QRect(0, 1, length, 1) : QRect(1, 0, 1, length);
    p.fillRect(first, outerFirst ? outer : inner);
    p.fillRect(second, outerFirst ? inner : outer);
    return pixmap;
}
