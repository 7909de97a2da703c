// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The profile dialogs share one look: rows of a caption and a box, top to
// bottom in the order the rows are given, with the tab order following them.
#include <QLabel>
#include <QLineEdit>

#include <initializer_list>

struct FieldRow
{
    QLabel** caption;
    const char* captionName;
    QLineEdit** box;
    const char* boxName;
};

// Makes the rows from Top `top` (twips) on; returns the Top below the last one.
int PlaceFieldRows(QWidget* window, std::initializer_list<FieldRow> rows, int top);
