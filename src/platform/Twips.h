// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Sizes and positions of controls are twips, 1440 to the inch; a pixel is as many twips as the
// screen's resolution gives (15 at 96 dpi). The one conversion between the two.
#include <QFontDatabase>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <cmath>

inline double TwipsPerPixel()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? 1440.0 / screen->logicalDotsPerInchX() : 15.0;
}

inline int Twips(int twips)
{
    return static_cast<int>(std::lround(twips / TwipsPerPixel()));
}

inline int PixelsToTwips(int pixels)
{
    return static_cast<int>(std::lround(pixels * TwipsPerPixel()));
}

// Left, Top, Width, Height in twips.
inline void PlaceTwips(QWidget* control, int left, int top, int width, int height)
{
    control->setGeometry(Twips(left), Twips(top), Twips(width), Twips(height));
}

// A control with its name (the name tests and accessibility find it by), placed in twips.
template <typename Control> Control* Named(Control* control, const char* name)
{
    control->setObjectName(QLatin1String(name));
    return control;
}
template <typename Control>
Control* Placed(Control* control, const char* name, int left, int top, int width, int height)
{
    PlaceTwips(Named(control, name), left, top, width, height);
    return control;
}

// The bold face of a control's own font (headings, values that stand out).
inline void MakeBold(QWidget* control)
{
    QFont font = control->font();
    font.setBold(true);
    control->setFont(font);
}

// The windows are laid out in twips for 8-point text of a narrow sans face, as they were
// designed: text of the desktop's own size would overrun its boxes. Liberation Sans has the
// metrics of the face the layout was made with; without it the desktop's face is kept.
inline void SetDesignFont()
{
    QFont font = QGuiApplication::font();
    if (QFontDatabase::families().contains(QStringLiteral("Liberation Sans")))
        font.setFamily(QStringLiteral("Liberation Sans"));
    font.setPointSize(8);
    QGuiApplication::setFont(font);
}
