#pragma once
// The update check on the user's request: a bar that runs through whatever the network does,
// and a closing message in every case.
#include "services/WindowSlot.h"

#include <memory>

class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;

namespace platform {
class Inet;
}

class UpdateWindow : public SingleDialog<UpdateWindow>
{
    Q_OBJECT
    friend class SingleDialog<UpdateWindow>;

public:
    ~UpdateWindow() override;
    void load();
    void onUnload();
    void checkTick();
    void advanceBar();
    void cancel();

    QLabel* info;
    QProgressBar* progressBar;
    QPushButton* cancelButton;
    QTimer *checkTimer, *barTimer;
    std::unique_ptr<platform::Inet> client;

    bool checking = false; // a check is waiting or asking

private:
    explicit UpdateWindow(QWidget* owner);
};

// Shows the check modally over `owner`.
void ShowUpdateCheck(QWidget* owner);
