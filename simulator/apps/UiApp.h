// SPDX-License-Identifier: Apache-2.0
// The assistant's UI without a screen: what a person would see is in its record.
//   state           every state and error it was told
//   partial         text while the person speaks, from the port "partial"
//   level           every change of the level file, and levels after a recording
//   speech detected, wake-up, result
// It turns the music down while the assistant listens and thinks.
// Orders: start (argument: mode), stop, cancel, close: sent to the service; acknowledge yes|no: whether Ready is
// answered.
#pragma once

#include "apps/Ducker.h"
#include "apps/LevelMeter.h"
#include "lib/Application.h"

namespace sim {

class UiApp : public Application {
public:
    explicit UiApp(const std::string& id);

private:
    void onLaunch(const Request& request) override;
    void onMessage(const std::string& port, const Entries& data) override;
    bool hasPort(const std::string& port) const override { return port == "partial"; }
    void onOrder(const std::string& order, const std::string& argument) override;

    void showState(const Extras& extras);
    void showResult();
    void start(const std::string& mode);
    void tell(const std::string& operation, const Extras& extras = {});

    bool mAcknowledges = true;
    LevelMeter mMeter;
    Ducker mDucker;
};

}  // namespace sim
