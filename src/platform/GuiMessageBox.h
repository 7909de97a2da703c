// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Message boxes drawn by the window system (the program installs this at start).
#include "platform/MessageBox.h"

namespace platform {
MessageAnswer ShowMessageBoxWindow(const MessageBoxCall& call);
void InstallWindowMessageBoxes();
} // namespace platform
