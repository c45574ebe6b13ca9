// SPDX-License-Identifier: Apache-2.0
// The assistant's UI without a screen. It records what a screen would show: wake word detected, speech detected, state,
// partial, level, levels, result. It turns the music down while the assistant records and processes an utterance.
// Actions:
//   start MODE, stop, cancel, close   sends this to the service
//   acknowledge yes|no                whether it acknowledges Ready; initially yes
#pragma once

#include "apps/Ducker.h"
#include "apps/LevelMeter.h"
#include "shared/Application.h"

namespace sim {

class UiApp : public Application {
public:
    explicit UiApp(const std::string& id);

private:
    void onLaunch(const Request& request) override;
    void onMessage(const std::string& port, const Entries& data) override;
    bool hasPort(const std::string& port) const override { return port == "partial"; }
    void onControl(const std::string& action, const std::string& argument) override;

    void showState(const Extras& extras);
    void showResult();
    void start(const std::string& mode);
    void send(const std::string& operation, const Extras& extras = {});

    bool mAcknowledges = true;
    LevelMeter mMeter;
    Ducker mDucker;
};

}  // namespace sim
