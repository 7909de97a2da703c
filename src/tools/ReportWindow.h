#pragma once
// The report: the listed entries' titles, user names and passwords as one plain text, made at
// opening, shown read-only, printed on the default printer after a warning or saved as text.
#include "services/WindowSlot.h"

class QPushButton;
class TextBox;

// The text for `rows` listed rows: the first `rows` entries of the table, whatever the list
// shows, one line each, after four head lines; no line end after the last line.
QString ReportText(int rows);

class ReportWindow : public SingleDialog<ReportWindow>
{
    Q_OBJECT
    friend class SingleDialog<ReportWindow>;

public:
    void load();
    void print(); // print
    void saveAsText(); // save
    void closeReport(); // close

    TextBox* reportBox;
    QPushButton *printButton, *saveButton, *closeButton;

private:
    explicit ReportWindow(QWidget* owner);
};

// Opens the report modally over the vault window.
void ShowReport(QWidget* owner);
