#pragma once
// The silent update check after a typed login: out of sight, speaking only when the maker's
// server has a newer version, gone after one check.
#include "services/WindowSlot.h"

#include <memory>

class QTimer;

namespace platform {
class Inet;
}

class SilentUpdateCheck : public SingleDialog<SilentUpdateCheck>
{
    Q_OBJECT
    friend class SingleDialog<SilentUpdateCheck>;

public:
    ~SilentUpdateCheck() override;
    void load();
    void onUnload();
    void checkTick();

    QTimer* checkTimer;
    std::unique_ptr<platform::Inet> client;

    bool checking = false; // a check is waiting or asking

private:
    explicit SilentUpdateCheck(QWidget* owner);
};

// Loads the silent check (never shown).
void StartSilentUpdateCheck();
