// Someone in front of an appliance on which the service listens.
#pragma once

#include <string>

#include "appliance/Appliance.h"

struct Person {
    explicit Person(std::string chosen = "slt") : voice(std::move(chosen)) { appliance.startService(); }

    void wakes() {
        appliance.turnPage();
        says("hey quorbit");
        appliance.await(sim::kUi, {{"event", "wake-up"}});
        appliance.awaitState("Recording");
    }
    void says(const std::string& text) { appliance.say(text, voice); }

    sim::Appliance appliance;
    std::string voice;
};
