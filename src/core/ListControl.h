// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the list-file operations need of a list: windows adapt their list and combo boxes.
#include <QString>
#include <QStringList>

class ListControl
{
public:
    virtual ~ListControl() = default;
    virtual void clearRows() = 0;
    // index -1 appends at the end.
    virtual void addRow(const QString& item, int index = -1) = 0;
    virtual int rowCount() const = 0;
    virtual QString rowText(int index) const = 0;
};

// A list held in memory only (the tool and the tests use it).
class StringListControl : public ListControl
{
public:
    void clearRows() override { items.clear(); }
    void addRow(const QString& item, int index = -1) override
    {
        if (index < 0 || index > items.size())
            items.append(item);
        else
            items.insert(index, item);
    }
    int rowCount() const override { return static_cast<int>(items.size()); }
    QString rowText(int index) const override { return items.value(index); }

    QStringList items;
};
