// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The test for another running copy of this same executable. Each copy makes itself known as
// the first thing it does, and stays known until it ends: a file of its own in a folder only
// this user owns, locked for the life of the process, so that a copy that ended without a
// word counts no more. Copies are ordered by when they made themselves known, one at a time;
// the test asks only about copies known earlier, so that of starts at the same moment exactly
// one runs.
#include <QString>

namespace platform {

// Makes this process known to later starts. Called once, before the language table loads.
void AnnounceInstance();

// App.PrevInstance: true if another copy of this executable that made itself known before this one is running. Any
// failure of the test itself (no folder to use, a file that can't be read) is no copy.
bool AnotherCopyRunning();

} // namespace platform
