// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/LabelLines.h"

#include "platform/MessageBox.h"

#include <QApplication>
#include <QProxyStyle>
#include <QStyleFactory>

namespace {

class LineBreakStyle : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;

    void drawItemText(QPainter* painter, const QRect& rect, int flags, const QPalette& palette, bool enabled,
        const QString& text, QPalette::ColorRole role) const override
    {
        const QString lines = platform::ScreenLines(text);
        if (text.contains(QLatin1Char('\r')) && (flags & Qt::AlignVCenter))
            flags = (flags & ~Qt::AlignVCenter) | Qt::AlignTop;
        QProxyStyle::drawItemText(painter, rect, flags, palette, enabled, lines, role);
    }
};

} // namespace

void LabelLines::Install()
{
    if (dynamic_cast<LineBreakStyle*>(QApplication::style()))
        return;
    QApplication::setStyle(new LineBreakStyle(QStyleFactory::create(QApplication::style()->name())));
}
