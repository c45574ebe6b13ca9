// SPDX-License-Identifier: Apache-2.0
#include "apps/Briefing.h"

#include <cstdio>

namespace sim {

namespace {

constexpr char kPlays[] = "Play";
constexpr char kStands[] = "Stop";

}  // namespace

Briefing::Briefing(const std::string& id) : Application(id) {
    write(kStands);
}

Briefing::~Briefing() {
    try {
        write(kStands);
    } catch (const std::exception& fault) {
        fprintf(stderr, "%s: %s\n", id().c_str(), fault.what());
    }
}

void Briefing::onLaunch(const Request&) {
    write(kPlays);
}

void Briefing::onOrder(const std::string& order, const std::string& argument) {
    if (order == "play") {
        write(kPlays);
    } else if (order == "stop") {
        write(kStands);
    } else if (order == "write") {
        write(argument);
    } else {
        Application::onOrder(order, argument);
    }
}

void Briefing::write(const std::string& state) {
    mDatabase.replace("MorningBrief", {{{"isMorningBriefPlaying", state}}});
    record().write("briefing", {{"state", state}});
}

}  // namespace sim
