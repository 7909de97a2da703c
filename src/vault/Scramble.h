// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Two scrambling operations of the main window's interface that no flow reaches: an
// unscrambler for a text in which every third character counts, and the filler it expects.
#include <QByteArray>

QByteArray DecodeBMK(QByteArray text);
QByteArray Hirbush(int count);
