// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The system's hand cursor over a clickable picture (LoadCursorA with resource 32649, then
// SetCursor), set when the mouse moves over it.
#include <QWidget>

namespace platform {

constexpr int IDC_HAND = 32649;

inline void SetCursor(QWidget* under, int resource)
{
    if (resource == IDC_HAND)
        under->setCursor(Qt::PointingHandCursor);
}

} // namespace platform
