// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/ProfileFields.h"

#include "platform/Twips.h"

#include <limits>

int PlaceFieldRows(QWidget* window, std::initializer_list<FieldRow> rows, int top)
{
    QWidget* previous = nullptr;
    for (const FieldRow& row : rows) {
        *row.caption = Placed(new QLabel(window), row.captionName, 120, top + 45, 1800, 285);
        *row.box = Placed(new QLineEdit(window), row.boxName, 1980, top, 2820, 330);
        // No limit of the boxes' own: a password cut here would be refused at the login.
        (*row.box)->setMaxLength(std::numeric_limits<int>::max());
        (*row.caption)->setBuddy(*row.box);
        if (previous)
            QWidget::setTabOrder(previous, *row.box);
        previous = *row.box;
        top += 450;
    }
    return top;
}
