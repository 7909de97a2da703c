// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The silent update check after a typed login (the original's frmAutoUpd): out of sight,
// speaking only when the maker's server has a newer version, gone after one check.
#include "widgets/WindowSlot.h"

#include <memory>

class QTimer;

namespace platform {
class HttpClient;
}

class SilentUpdateCheck : public SingleDialog<SilentUpdateCheck>
{
    Q_OBJECT
    friend class SingleDialog<SilentUpdateCheck>;

    template <typename Form> friend void CheckOnce(Form* form, void (*noNews)());

public:
    ~SilentUpdateCheck() override;
    // The tick of its timer (600 ms; tests call it instead of waiting).
    void checkTick();

private:
    explicit SilentUpdateCheck(QWidget* owner);
    void load();
    void onUnload();

    QTimer* checkTimer;
    std::unique_ptr<platform::HttpClient> client;
    bool checking = false; // a check is waiting or asking
};

// Loads the silent check (never shown).
void StartSilentUpdateCheck();
