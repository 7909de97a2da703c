// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The system's hand cursor over a clickable picture (LoadCursorA of IDC_HAND, 32649, then
// SetCursor), set when the mouse moves over it.
#include <QWidget>

namespace platform {

inline void ShowHandCursor(QWidget* under)
{
    under->setCursor(Qt::PointingHandCursor);
}

} // namespace platform
