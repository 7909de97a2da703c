// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The runtime's list box: rows of text (each ends at a first zero character), one selected at most, and a rowClicked
// that comes with every mouse click in it and with every change of row by the keyboard. A sorted list keeps its rows in
// the list's order (core/ListOrder.h), whatever order they come in (the toolkit's own sorting is case-sensitive and
// follows the locale).
#include "core/ListControl.h"

#include <QListWidget>

class ListBox : public QListWidget, public ListControl
{
    Q_OBJECT
public:
    explicit ListBox(bool sorted, QWidget* parent = nullptr);

    void clearRows() override;
    // A sorted list puts the row in its place and ignores the index.
    void addRow(const QString& item, int index = -1) override;
    int rowCount() const override;
    QString rowText(int index) const override;

    // The text of the selected row, empty when none is selected.
    QString selectedText() const;
    // The selected row, -1 when none is.
    int selectedRow() const;
    void selectRow(int index);
    // Afterwards no row is selected.
    void removeRow(int index);

Q_SIGNALS:
    void rowClicked();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    bool sorted;
};
