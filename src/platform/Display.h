// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Whether the desktop's display answers, asked before a GUI application object is made: Qt ends
// the process when the display it is given can't be reached.

namespace platform {

// True when the display that Qt would use accepts a connection (the X server of DISPLAY, the
// Wayland compositor of WAYLAND_DISPLAY), or when QT_QPA_PLATFORM names a platform without one
// (offscreen). False when none is named or none answers.
bool DisplayAnswers();

} // namespace platform
