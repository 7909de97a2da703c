// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/ListBox.h"

#include "core/ListOrder.h"

#include <QKeyEvent>
#include <QMouseEvent>

ListBox::ListBox(bool sortedRows, QWidget* parent)
    : QListWidget(parent)
    , sorted(sortedRows)
{
    setSelectionMode(QAbstractItemView::SingleSelection);
    setUniformItemSizes(true);
}

void ListBox::clearRows()
{
    clear();
}

void ListBox::addRow(const QString& value, int index)
{
    const QString item = RowText(value);
    if (!sorted) {
        if (index < 0 || index > count())
            addItem(item);
        else
            insertItem(index, item);
        return;
    }
    // After every row that does not come later, so equal rows keep the order they came in.
    int low = 0;
    int high = count();
    while (low < high) {
        const int middle = (low + high) / 2;
        if (CompareRows(QListWidget::item(middle)->text(), item) <= 0)
            low = middle + 1;
        else
            high = middle;
    }
    insertItem(low, item);
}

int ListBox::rowCount() const
{
    return count();
}

QString ListBox::rowText(int index) const
{
    const QListWidgetItem* row = item(index);
    return row ? row->text() : QString();
}

QString ListBox::selectedText() const
{
    const int index = selectedRow();
    return index < 0 ? QString() : rowText(index);
}

int ListBox::selectedRow() const
{
    const QList<QListWidgetItem*> chosen = selectedItems();
    return chosen.isEmpty() ? -1 : row(chosen.first());
}

void ListBox::selectRow(int index)
{
    if (index < 0 || index >= count()) {
        clearSelection();
        return;
    }
    setCurrentRow(index);
}

void ListBox::removeRow(int index)
{
    QListWidgetItem* removed = takeItem(index);
    if (!removed)
        return;
    delete removed;
    // The toolkit moves the selection to a neighbour; a removed row leaves none, so a second
    // delete can't reach the row next to it.
    selectionModel()->clear();
}

void ListBox::mouseReleaseEvent(QMouseEvent* event)
{
    QListWidget::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton)
        Q_EMIT rowClicked();
}

void ListBox::keyPressEvent(QKeyEvent* event)
{
    const int before = selectedRow();
    QListWidget::keyPressEvent(event);
    if (selectedRow() != before)
        Q_EMIT rowClicked();
}
