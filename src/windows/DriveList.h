// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The runtime's drive list: one row a drive ("c: [name]"), Drive the text of the row on show,
// and Change whenever the drive on show becomes another one. The rows are read again each time
// the list drops down, so a medium put in meanwhile is offered.
#include <QComboBox>

class DriveList : public QComboBox
{
    Q_OBJECT
public:
    explicit DriveList(QWidget* parent = nullptr);

    QString Drive() const;
    // Shows the drive named by the first letter of `drive`; a letter that is not there is
    // refused with the runtime's error number (68, device unavailable) and changes nothing.
    int SetDrive(const QString& drive);

    void showPopup() override;

Q_SIGNALS:
    void Change();

private:
    void fill();
    QString shown;
};
