// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The settings window's second page (the original's Frame5 of frmSettings): a portable copy of
// the program put on a removable drive, or taken off it again.
#include "core/Texts.h"

#include <QGroupBox>

class DriveList;
class QLabel;
class QPushButton;

class RemovableDrivePage : public QGroupBox
{
    Q_OBJECT
public:
    explicit RemovableDrivePage(QWidget* parent);

    void SetCaptions();
    // The page as the run needs it: a portable run has nothing to offer but a notice.
    void SetUp();
    // Shows this drive ("C:\"); the status follows when the drive on show changes.
    void ShowDrive(const QString& drive);

private:
    void showStatus();
    void install();
    void remove();
    // The drive as "E:", read from the list at each use.
    QString drive() const;
    void setStatus(Text text, int colour);

    DriveList* driveList;
    QLabel *driveCaption, *statusCaption, *status, *portableNotice;
    QPushButton *installButton, *removeButton;
};
