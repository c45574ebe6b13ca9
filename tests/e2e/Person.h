// SPDX-License-Identifier: Apache-2.0
// Someone in front of an appliance on which the service listens.
#pragma once

#include <gtest/gtest.h>

#include <exception>
#include <string>

#include "appliance/Appliance.h"

struct Person {
    explicit Person(std::string chosen = "slt") : voice(std::move(chosen)) {
        appliance.startService();
        appliance.awaitRecognizer();
    }
    ~Person() {
        if (std::uncaught_exceptions() != 0 || testing::Test::HasFailure()) {
            appliance.showLastWords();
        }
    }

    void wakes() { appliance.wakeUp(voice); }
    // Presses again for as long as the service says that it is not ready, as somebody would just after switching on.
    void pushesToTalk() {
        const sim::Event refused = {{"event", "state"}, {"state", "Error"}, {"error", "ServiceNotReady"}};
        int pressed = 0;
        appliance.until("recording starts", [&] {
            if (appliance.count(sim::kUi, refused) == pressed) {
                appliance.order(sim::kUi, "start", "PTT");
                ++pressed;
            }
            return appliance.count(sim::kUi, {{"event", "state"}, {"state", "Recording"}}) != 0;
        });
    }
    // Returns when the service has noticed, too.
    void losesNetwork() {
        appliance.network("none");
        appliance.until("the service knows that there is no network",
                        [&] { return appliance.serviceLog().find("net connection state: 0") != std::string::npos; });
    }
    void says(const std::string& text) { appliance.say(text, voice); }

    sim::Appliance appliance;
    std::string voice;
};
