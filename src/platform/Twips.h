#pragma once
// Sizes and positions of controls are twips: 15 to a pixel at 96 dpi, the one conversion.
#include <QWidget>

inline int Twips(int twips)
{
    return (twips + 7) / 15;
}

inline int PixelsToTwips(int pixels)
{
    return pixels * 15;
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
