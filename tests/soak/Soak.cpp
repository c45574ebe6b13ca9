// SPDX-License-Identifier: Apache-2.0
#include "Soak.h"

#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace soak {

namespace {

constexpr const char* kCommands[] = {"open music",
                                     "close music",
                                     "open notes",
                                     "go home",
                                     "go to the home screen",
                                     "next step",
                                     "show me the recipe for pancakes",
                                     "search for apple pie",
                                     "open the weather in springfield"};
constexpr int kSearches = 5;

// Thrown when the service refuses a request.
struct Refused {};

}  // namespace

struct Soak::Kind {
    const char* name;
    int weight;
    void (Soak::*perform)();
};

const Soak::Kind Soak::kinds[] = {
    {"push to talk", 350, &Soak::pushedToTalk},
    {"canceled", 350, &Soak::canceled},
    {"spoken", 60, &Soak::spoken},
    {"woken", 30, &Soak::woken},
    {"closed", 40, &Soak::closed},
    {"microphone off", 50, &Soak::microphoneOff},
    {"network off", 50, &Soak::networkOff},
    {"household faulty", 30, &Soak::householdFaulty},
    {"language changed", 12, &Soak::languageChanged},
    {"word changed", 8, &Soak::wordChanged},
    {"sound restarted", 8, &Soak::soundRestarted},
    {"UI killed", 8, &Soak::uiKilled},
    {"UI silent", 5, &Soak::uiSilent},
    {"started twice", 5, &Soak::startedTwice},
    {"nothing said", 3, &Soak::nothingSaid},
};

void Soak::request() {
    int weights = 0;
    for (const Kind& kind : kinds) {
        weights += kind.weight;
    }
    int at = std::uniform_int_distribution<>(0, weights - 1)(mRandom);
    const Kind* kind = kinds;
    for (; at >= kind->weight; ++kind) {
        at -= kind->weight;
    }
    mEnd = "no state";
    try {
        (this->*kind->perform)();
    } catch (const Refused&) {
    } catch (const std::exception& fault) {
        if (mAppliance.room().runs()) {
            throw std::runtime_error(std::string(kind->name) + ": " + fault.what());
        }
    }
    if (!mAppliance.room().runs()) {
        restoreSound();
    }
    if (!mAppliance.service().runs()) {
        throw std::runtime_error(std::string(kind->name) + ": the service has ended");
    }
    ++mEnds[std::string(kind->name) + ": " + mEnd];
}

void Soak::proveAlive() {
    proveAnswered();
    proveRefreshed();
}

void Soak::proveAnswered() {
    for (int tries = 0; tries < kSearches; ++tries) {
        mAppliance.wakeUp("slt", wakeUpWord());
        mAppliance.say("search for apple pie");
        awaitEnd();
        if (mEnd == "Ready/None") {
            return;
        }
    }
    throw std::runtime_error("a search is not recognized");
}

void Soak::proveRefreshed() {
    const std::string name = "Person " + std::to_string(++mHouseholds);
    mAppliance.hub().faults(nlohmann::json::array());
    mAppliance.hub().families({{{"id", "f1"}, {"name", "Home"}, {"users", {{{"id", "u1"}, {"name", name}}}}}});
    mAppliance.control(sim::kAccount, "behavior", "signed in");
    mAppliance.announceProfile();
    sim::until(
        "the changed household is stored", [&] { return mAppliance.users() == std::vector<std::string>{name}; },
        kRequestSeconds);
}

// Repeats the start while the service reports that it is not ready.
void Soak::start(const std::string& mode) {
    const auto recording = [this] {
        return mAppliance.count(sim::kUi, {{"event", "state"}, {"state", "Recording"}}) != 0;
    };
    const auto recordingOrRefused = [&] {
        mAppliance.turnPage();
        mAppliance.control(sim::kUi, "start", mode);
        sim::until(
            "the service answers a start", [&] { return ended() || recording(); }, kRequestSeconds);
        return recording() || mEnd != "Error/ServiceNotReady";
    };
    sim::until("the service is ready", recordingOrRefused, kRequestSeconds);
    if (!recording()) {
        throw Refused();
    }
}

// PulseAudio itself sometimes aborts, which is not a failure of the service.
void Soak::restoreSound() {
    mEnd += ", the sound server aborted";
    std::ifstream log(mAppliance.folder() / "pulse.log");
    fprintf(stderr, "the sound server aborted:\n%s\n", std::string(std::istreambuf_iterator<char>(log), {}).c_str());
    mAppliance.restartSound();
    sim::until(
        "the service records the microphone again", [this] { return mAppliance.isRecorded(); }, kRequestSeconds);
}

void Soak::sayUntilEnd() {
    mAppliance.say(command());
    awaitEnd();
}

void Soak::awaitEnd() {
    sim::until(
        "the request ends", [this] { return ended(); }, kRequestSeconds);
}

bool Soak::ended() {
    for (const sim::Event& event : mAppliance.events().page()) {
        if (event.value("app", "") == sim::kUi && event.value("event", "") == "state") {
            const std::string state = event.value("state", "");
            if (state == "Ready" || state == "Error" || state == "StandBy") {
                mEnd = state + "/" + event.value("error", "");
                return true;
            }
        }
    }
    return false;
}

bool Soak::chance(int percent) {
    return std::uniform_int_distribution<>(0, 99)(mRandom) < percent;
}

void Soak::pause(double longest) {
    usleep(static_cast<useconds_t>(std::uniform_real_distribution<>(0, longest)(mRandom) * 1e6));
}

const char* Soak::command() {
    return kCommands[std::uniform_int_distribution<std::size_t>(0, std::size(kCommands) - 1)(mRandom)];
}

}  // namespace soak
