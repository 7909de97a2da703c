// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The report (the original's frmRaport): the listed entries' titles, user names and passwords
// as one plain text, made at opening, shown read-only, printed on the default printer after a
// warning or saved as text.
#include "core/Entry.h"
#include "widgets/WindowSlot.h"

#include <QList>

class QPushButton;
class TextBox;

// The text of the report: four head lines, then one line for each entry given; no line end
// after the last line.
QString ReportText(const QList<Entry>& entries);

class ReportWindow : public SingleDialog<ReportWindow>
{
    Q_OBJECT
    friend class SingleDialog<ReportWindow>;

private:
    ReportWindow(QWidget* owner, const QList<Entry>& entries);
    void load();
    void print();
    void saveAsText();

    QList<Entry> entries;
    TextBox* reportBox;
    QPushButton *printButton, *saveButton, *closeButton;
};

// Opens the report modally over `owner`, on the entries it is to show (the first ones of the
// table, as many as the list has rows, whatever rows those are).
void ShowReport(QWidget* owner, const QList<Entry>& entries);
