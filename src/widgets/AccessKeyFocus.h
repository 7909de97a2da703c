// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A button's access key (Alt and its underlined letter) moves the focus to the button before it
// clicks, as a Windows dialog does: the box that had the focus hands its text over first, so
// Alt+S in the title box saves the title just typed. Qt clicks without moving the focus.

namespace AccessKeyFocus {
// Once per run, for every button of every window.
void Install();
} // namespace AccessKeyFocus
