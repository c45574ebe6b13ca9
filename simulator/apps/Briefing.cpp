// SPDX-License-Identifier: Apache-2.0
#include "apps/Briefing.h"

#include <cstdio>

namespace sim {

namespace {

constexpr char kPlaying[] = "Play";
constexpr char kStopped[] = "Stop";

}  // namespace

Briefing::Briefing(const std::string& id) : Application(id) {
    write(kStopped);
}

Briefing::~Briefing() {
    try {
        write(kStopped);
    } catch (const std::exception& fault) {
        fprintf(stderr, "%s: %s\n", id().c_str(), fault.what());
    }
}

void Briefing::onLaunch(const Request&) {
    write(kPlaying);
}

void Briefing::onControl(const std::string& action, const std::string& argument) {
    if (action == "play") {
        write(kPlaying);
    } else if (action == "stop") {
        write(kStopped);
    } else if (action == "write") {
        write(argument);
    } else {
        Application::onControl(action, argument);
    }
}

void Briefing::write(const std::string& state) {
    mDatabase.replace("MorningBrief", {{{"isMorningBriefPlaying", state}}});
    record().write("briefing", {{"state", state}});
}

}  // namespace sim
