// SPDX-License-Identifier: Apache-2.0
#include "Soak.h"

#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace soak {

namespace {

constexpr char kMicrophone[] = "db/mic_key/status";
constexpr const char* kCommands[] = {"open music",
                                     "close music",
                                     "open notes",
                                     "go home",
                                     "go to the home screen",
                                     "next step",
                                     "show me the recipe for pancakes",
                                     "search for apple pie",
                                     "open the weather in springfield"};
constexpr const char* kHubFaults[] = {"error", "garbage", "half"};
// The longest that a request may last: 7 s without speech, 10 s of speech, 30 s of waiting, and room for a busy
// machine.
constexpr double kLongest = 60;
constexpr useconds_t kBreath = 50000;
constexpr int kTries = 200;
constexpr int kSearches = 5;

// The request ended where it began.
struct Ended {};

// A fault ends with its request, however that ends.
template <typename Request, typename Undo>
void thenAlways(Request request, Undo undo) {
    try {
        request();
    } catch (...) {
        undo();
        throw;
    }
    undo();
}

}  // namespace

struct Soak::Kind {
    const char* name;
    int weight;
    void (Soak::*perform)();
};

const Soak::Kind Soak::kinds[] = {
    {"push to talk", 350, &Soak::pushedToTalk},
    {"cancelled", 350, &Soak::cancelled},
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
    } catch (const Ended&) {
    } catch (const std::exception& fault) {
        if (mAppliance.soundRuns()) {
            throw std::runtime_error(std::string(kind->name) + ": " + fault.what());
        }
    }
    if (!mAppliance.soundRuns()) {
        restoreSound();
    }
    if (!mAppliance.serviceRuns()) {
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
    throw std::runtime_error("a search is no longer understood");
}

void Soak::proveRefreshed() {
    const std::string name = "Person " + std::to_string(++mHouseholds);
    mAppliance.hub().faults(nlohmann::json::array());
    mAppliance.hub().families({{{"id", "f1"}, {"name", "Home"}, {"users", {{{"id", "u1"}, {"name", name}}}}}});
    mAppliance.order(sim::kAccount, "behave", "signed in");
    mAppliance.announceProfile();
    mAppliance.until(
        "a changed household is stored", [&] { return mAppliance.users() == std::vector<std::string>{name}; },
        kLongest);
}

// --- kinds ---

void Soak::pushedToTalk() {
    start("PTT");
    mAppliance.say(command());
    mAppliance.order(sim::kUi, "stop");
    awaitEnd();
}

void Soak::spoken() {
    start(chance(20) ? "ClearContext" : "Default");
    sayUntilEnd();
}

void Soak::woken() {
    mAppliance.wakeUp("slt", wakeUpWord());
    sayUntilEnd();
}

void Soak::cancelled() {
    start(chance(50) ? "PTT" : "Default");
    const auto speech = mAppliance.startSaying(command());
    pause(1.0);
    mAppliance.order(sim::kUi, "cancel");
    awaitEnd();
}

// A UI that closes wants no state; that the request is over shows in the next one, which is recorded.
void Soak::closed() {
    start("Default");
    {
        const auto speech = mAppliance.startSaying(command());
        pause(1.0);
        mAppliance.order(sim::kUi, "close");
    }
    start("Default");
    mAppliance.order(sim::kUi, "cancel");
    awaitEnd();
}

void Soak::startedTwice() {
    start("Default");
    mAppliance.order(sim::kUi, "start", "Default");
    mAppliance.order(sim::kUi, "cancel");
    mEnd = "StandBy/None";
    mAppliance.awaitState("StandBy");
}

void Soak::microphoneOff() {
    start("Default");
    const auto speech = mAppliance.startSaying(command());
    pause(0.5);
    sim::settings::set(kMicrophone, 0);
    thenAlways([this] { awaitEnd(); }, [] { sim::settings::set(kMicrophone, 1); });
}

void Soak::networkOff() {
    start("Default");
    const auto speech = mAppliance.startSaying(command());
    pause(0.5);
    mAppliance.network("none");
    thenAlways([this] { awaitEnd(); }, [this] { mAppliance.network(chance(50) ? "wifi" : "ethernet"); });
}

void Soak::languageChanged() {
    start("PTT");
    const auto speech = mAppliance.startSaying(command());
    pause(0.8);
    mBritish = !mBritish;
    sim::settings::set(sim::kMenuLanguage, mBritish ? "en_GB.UTF-8" : "en_US.UTF-8");
    speech->wait();
    mAppliance.order(sim::kUi, "stop");
    awaitEnd();
}

void Soak::wordChanged() {
    mVexal = !mVexal;
    sim::settings::set(sim::kWakeupWord, mVexal ? 1 : 0);
    mAppliance.wakeUp("slt", wakeUpWord());
    sayUntilEnd();
}

void Soak::soundRestarted() {
    start("Default");
    auto speech = mAppliance.startSaying(command());
    pause(0.8);
    mAppliance.restartSound();
    awaitEnd();
    mAppliance.until(
        "the microphone is recorded again", [this] { return mAppliance.isHeard(); }, kLongest);
}

// Its states start it again.
void Soak::uiKilled() {
    start("Default");
    const auto speech = mAppliance.startSaying(command());
    pause(0.8);
    mAppliance.kill(sim::kUi);
    awaitEnd();
}

void Soak::uiSilent() {
    mAppliance.order(sim::kUi, "acknowledge", "no");
    thenAlways([this] { pushedToTalk(); }, [this] { mAppliance.order(sim::kUi, "acknowledge", "yes"); });
}

void Soak::nothingSaid() {
    start("Default");
    awaitEnd();
}

void Soak::householdFaulty() {
    const int request = std::uniform_int_distribution<>(1, 4)(mRandom);
    const char* kind = kHubFaults[std::uniform_int_distribution<std::size_t>(0, std::size(kHubFaults) - 1)(mRandom)];
    mAppliance.hub().faults({{{"request", request}, {"kind", kind}, {"status", 503}}});
    mAppliance.order(sim::kAccount, "behave", chance(70) ? "signed in" : chance(50) ? "failing" : "silent");
    mAppliance.announceProfile();
    pushedToTalk();
}

// --- their parts ---

// Tried again for as long as the engine is still busy with what was before.
void Soak::start(const std::string& mode) {
    for (int tries = 0; tries < kTries; ++tries) {
        mAppliance.turnPage();
        mAppliance.order(sim::kUi, "start", mode);
        mAppliance.until(
            "a start is answered",
            [this] {
                return ended() || mAppliance.count(sim::kUi, {{"event", "state"}, {"state", "Recording"}}) != 0;
            },
            kLongest);
        if (mAppliance.count(sim::kUi, {{"event", "state"}, {"state", "Recording"}}) != 0) {
            return;
        }
        if (mEnd != "Error/ServiceNotReady") {
            throw Ended();
        }
        usleep(kBreath);
    }
    throw std::runtime_error("the service is never ready");
}

// It is no part of what is tried here, and now and then it dies of its own.
void Soak::restoreSound() {
    mEnd += ", the sound server died by itself";
    std::ifstream log(mAppliance.folder() / "pulse.log");
    fprintf(stderr, "the sound server died by itself:\n%s\n",
            std::string(std::istreambuf_iterator<char>(log), {}).c_str());
    mAppliance.restartSound();
    mAppliance.until(
        "the microphone is recorded again", [this] { return mAppliance.isHeard(); }, kLongest);
}

void Soak::sayUntilEnd() {
    mAppliance.say(command());
    awaitEnd();
}

void Soak::awaitEnd() {
    mAppliance.until(
        "the request ends", [this] { return ended(); }, kLongest);
}

bool Soak::ended() {
    for (const sim::Event& event : mAppliance.page()) {
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
