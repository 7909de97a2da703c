#include "startup/ProgramPictures.h"

#include "platform/Twips.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

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
