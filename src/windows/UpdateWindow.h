// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The update check on the user's request (the original's frmUpdate): a bar that runs through
// whatever the network does, and a closing message in every case.
#include "widgets/WindowSlot.h"

#include <memory>

class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;

namespace platform {
class HttpClient;
}

class UpdateWindow : public SingleDialog<UpdateWindow>
{
    Q_OBJECT
    friend class SingleDialog<UpdateWindow>;

    template <typename Form> friend void CheckOnce(Form* form, void (*noNews)());

public:
    ~UpdateWindow() override;
    // The ticks of the two timers (900 ms and 700 ms; tests call them instead of waiting).
    void checkTick();
    void advanceBar();

private:
    explicit UpdateWindow(QWidget* owner);
    void load();
    void onUnload();
    void cancel();

    QLabel* info;
    QProgressBar* progressBar;
    QPushButton* cancelButton;
    QTimer *checkTimer, *barTimer;
    std::unique_ptr<platform::HttpClient> client;
    bool checking = false; // a check is waiting or asking
};

// Shows the check modally over `owner`.
void ShowUpdateCheck(QWidget* owner);
