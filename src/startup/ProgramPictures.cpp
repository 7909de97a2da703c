#include "startup/ProgramPictures.h"

#include "platform/Twips.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <functional>

namespace {

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
    fill.setColorAt(0, QColor(0x2f, 0x6f, 0xb3));
    fill.setColorAt(1, QColor(0x17, 0x3e, 0x6e));
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
    back.setColorAt(0, QColor(0xf4, 0xf7, 0xfb));
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
    p.setPen(QColor(0x17, 0x3e, 0x6e));
    p.drawText(QRectF(side * 1.3, 0, logical.width() - side * 1.3, logical.height()), Qt::AlignVCenter | Qt::AlignLeft,
        QStringLiteral("Tolvane"));
    return pixmap;
}

QIcon ProgramIcon()
{
    QIcon icon;
    for (int size : { 16, 24, 32, 48, 64, 128, 256 }) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter p(&pixmap);
        drawMark(p, size);
        icon.addPixmap(pixmap);
    }
    return icon;
}

namespace {

const QColor ink(0x17, 0x3e, 0x6e);
const QColor paper(0xf4, 0xf7, 0xfb);

// An icon drawn by `draw` into squares of the usual sizes, so it stays sharp at any scale.
QIcon drawnIcon(const std::function<void(QPainter&, qreal)>& draw)
{
    QIcon icon;
    for (int size : { 16, 24, 32, 48, 64 }) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter p(&pixmap);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(ink, qMax(1.0, size / 16.0), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.setBrush(paper);
        draw(p, size);
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace

QIcon CopyPicture()
{
    return drawnIcon([](QPainter& p, qreal s) {
        p.drawRoundedRect(QRectF(s * 0.1, s * 0.08, s * 0.5, s * 0.6), s * 0.06, s * 0.06);
        p.drawRoundedRect(QRectF(s * 0.38, s * 0.32, s * 0.5, s * 0.6), s * 0.06, s * 0.06);
    });
}

QIcon DocumentPicture()
{
    return drawnIcon([](QPainter& p, qreal s) {
        QPainterPath page;
        page.moveTo(s * 0.2, s * 0.06);
        page.lineTo(s * 0.6, s * 0.06);
        page.lineTo(s * 0.82, s * 0.28);
        page.lineTo(s * 0.82, s * 0.94);
        page.lineTo(s * 0.2, s * 0.94);
        page.closeSubpath();
        p.drawPath(page);
        p.drawLine(QPointF(s * 0.6, s * 0.06), QPointF(s * 0.6, s * 0.28));
        p.drawLine(QPointF(s * 0.6, s * 0.28), QPointF(s * 0.82, s * 0.28));
        for (qreal y : { 0.48, 0.62, 0.76 })
            p.drawLine(QPointF(s * 0.32, s * y), QPointF(s * 0.7, s * y));
    });
}

QIcon WebPicture()
{
    return drawnIcon([](QPainter& p, qreal s) {
        const QPointF centre(s * 0.5, s * 0.5);
        p.drawEllipse(centre, s * 0.42, s * 0.42);
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(centre, s * 0.18, s * 0.42);
        p.drawLine(QPointF(s * 0.08, s * 0.5), QPointF(s * 0.92, s * 0.5));
        p.drawLine(QPointF(s * 0.5, s * 0.08), QPointF(s * 0.5, s * 0.92));
    });
}

QIcon GeneratorPicture()
{
    return drawnIcon([](QPainter& p, qreal s) {
        p.drawRoundedRect(QRectF(s * 0.1, s * 0.1, s * 0.8, s * 0.8), s * 0.16, s * 0.16);
        p.setBrush(ink);
        const qreal r = s * 0.07;
        for (const QPointF& dot :
            { QPointF(0.32, 0.32), QPointF(0.5, 0.5), QPointF(0.68, 0.68), QPointF(0.68, 0.32), QPointF(0.32, 0.68) })
            p.drawEllipse(QPointF(s * dot.x(), s * dot.y()), r, r);
    });
}
