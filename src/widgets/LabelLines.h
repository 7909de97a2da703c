// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A line break in a label's text ("_" in the language file) breaks the line on the screen, as it
// does in a message box; the toolkit would draw it as a blank. A label of several lines keeps
// its text at the top and cuts what does not fit, as the classic label does.

namespace LabelLines {
// Once per run, for the texts of every window.
void Install();
} // namespace LabelLines
