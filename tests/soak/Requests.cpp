// SPDX-License-Identifier: Apache-2.0
// The kinds of requests.
#include <iterator>

#include "Soak.h"

namespace soak {

namespace {

constexpr const char* kHubFaults[] = {"error", "garbage", "half"};

// Removes a fault after the request, also after an exception.
template <typename Request, typename Cleanup>
void withCleanup(Request request, Cleanup cleanup) {
    try {
        request();
    } catch (...) {
        cleanup();
        throw;
    }
    cleanup();
}

}  // namespace

void Soak::pushedToTalk() {
    start("PTT");
    mAppliance.say(command());
    mAppliance.control(sim::kUi, "stop");
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

void Soak::canceled() {
    start(chance(50) ? "PTT" : "Default");
    const auto speech = mAppliance.startSaying(command());
    pause(1.0);
    mAppliance.control(sim::kUi, "cancel");
    awaitEnd();
}

// A close ends the request without a state. The next request proves that the previous one is over.
void Soak::closed() {
    start("Default");
    {
        const auto speech = mAppliance.startSaying(command());
        pause(1.0);
        mAppliance.control(sim::kUi, "close");
    }
    start("Default");
    mAppliance.control(sim::kUi, "cancel");
    awaitEnd();
}

void Soak::startedTwice() {
    start("Default");
    mAppliance.control(sim::kUi, "start", "Default");
    mAppliance.control(sim::kUi, "cancel");
    mEnd = "StandBy/None";
    mAppliance.awaitState("StandBy");
}

void Soak::microphoneOff() {
    start("Default");
    const auto speech = mAppliance.startSaying(command());
    pause(0.5);
    sim::settings::set(sim::kMicrophone, 0);
    withCleanup([this] { awaitEnd(); }, [] { sim::settings::set(sim::kMicrophone, 1); });
}

void Soak::networkOff() {
    start("Default");
    const auto speech = mAppliance.startSaying(command());
    pause(0.5);
    mAppliance.setNetwork("none");
    withCleanup([this] { awaitEnd(); }, [this] { mAppliance.setNetwork(chance(50) ? "wifi" : "ethernet"); });
}

void Soak::languageChanged() {
    start("PTT");
    const auto speech = mAppliance.startSaying(command());
    pause(0.8);
    mBritish = !mBritish;
    sim::settings::set(sim::kMenuLanguage, mBritish ? "en_GB.UTF-8" : "en_US.UTF-8");
    speech->wait();
    mAppliance.control(sim::kUi, "stop");
    awaitEnd();
}

void Soak::wordChanged() {
    mVexal = !mVexal;
    sim::settings::set(sim::kWakeWord, mVexal ? 1 : 0);
    mAppliance.wakeUp("slt", wakeUpWord());
    sayUntilEnd();
}

void Soak::soundRestarted() {
    start("Default");
    auto speech = mAppliance.startSaying(command());
    pause(0.8);
    mAppliance.restartSound();
    awaitEnd();
    sim::until(
        "the service records the microphone again", [this] { return mAppliance.isRecorded(); }, kRequestSeconds);
}

// The service starts the UI again with the next state.
void Soak::uiKilled() {
    start("Default");
    const auto speech = mAppliance.startSaying(command());
    pause(0.8);
    mAppliance.kill(sim::kUi);
    awaitEnd();
}

void Soak::uiSilent() {
    mAppliance.control(sim::kUi, "acknowledge", "no");
    withCleanup([this] { pushedToTalk(); }, [this] { mAppliance.control(sim::kUi, "acknowledge", "yes"); });
}

void Soak::nothingSaid() {
    start("Default");
    awaitEnd();
}

void Soak::householdFaulty() {
    const int request = std::uniform_int_distribution<>(1, 4)(mRandom);
    const char* kind = kHubFaults[std::uniform_int_distribution<std::size_t>(0, std::size(kHubFaults) - 1)(mRandom)];
    mAppliance.hub().faults({{{"request", request}, {"kind", kind}, {"status", 503}}});
    mAppliance.control(sim::kAccount, "behavior", chance(70) ? "signed in" : chance(50) ? "failing" : "silent");
    mAppliance.announceProfile();
    pushedToTalk();
}

}  // namespace soak
