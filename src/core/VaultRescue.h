// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Reading a vault the careful way, for users who want back what the program's own reading
// loses: every continuation line of a long value, the escapes undone, the padding cut. A
// vault that has not been saved since still holds all of it.
#include "core/Entry.h"

#include <QList>

QList<Entry> RescueInnerText(const QByteArray& innerText);
