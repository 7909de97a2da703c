// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The first window (the original's frmSplash): the language table, the refusal of a second
// copy, then three ticks of a second before the login.
#include <QWidget>

class QLabel;
class QTimer;

class SplashWindow : public QWidget
{
    Q_OBJECT
public:
    // The splash of a normal start or a restart, loaded and shown; a second copy ends here.
    static SplashWindow* Start();

    // A tick of the timer (1000 ms; tests call it instead of waiting): the third hands over to
    // the login.
    void tick();

Q_SIGNALS:
    // Time for the login; the splash closes once it is up.
    void loginDue();

private:
    SplashWindow();
    // The language table, then the refusal of a second copy (which ends the process).
    void initialize();
    void load();

    QLabel* picture;
    QLabel* rightsNotice;
    QTimer* tickTimer;
    qint16 ticks = 0;
};
