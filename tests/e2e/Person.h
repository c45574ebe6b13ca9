// SPDX-License-Identifier: Apache-2.0
// A person in front of an appliance whose service listens. After a failed test, prints the end of the service's log.
#pragma once

#include <gtest/gtest.h>

#include <exception>
#include <string>

#include "appliance/Appliance.h"

struct Person {
    explicit Person(std::string chosen = "slt") : voice(std::move(chosen)) {
        appliance.service().start();
        appliance.service().awaitRecognizer();
    }
    ~Person() {
        if (std::uncaught_exceptions() != 0 || testing::Test::HasFailure()) {
            appliance.service().printEndOfLog();
        }
    }

    void wakes() { appliance.wakeUp(voice); }
    // Presses again while the service reports that it is not ready, as a person would.
    void pushesToTalk() {
        const sim::Event refused = {{"event", "state"}, {"state", "Error"}, {"error", "ServiceNotReady"}};
        int pressed = 0;
        sim::until("recording starts", [&] {
            if (appliance.count(sim::kUi, refused) == pressed) {
                appliance.control(sim::kUi, "start", "PTT");
                ++pressed;
            }
            return appliance.count(sim::kUi, {{"event", "state"}, {"state", "Recording"}}) != 0;
        });
    }
    // Returns when the service has noticed the loss.
    void losesNetwork() {
        appliance.setNetwork("none");
        sim::until("the service knows that there is no network",
                   [&] { return appliance.service().log().find("net connection state: 0") != std::string::npos; });
    }
    void says(const std::string& text) { appliance.say(text, voice); }

    sim::Appliance appliance;
    std::string voice;
};
