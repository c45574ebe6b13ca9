// SPDX-License-Identifier: Apache-2.0
// Requests of every kind, one after the other, with faults at random moments. Each must end as it may, and the service
// must answer afterwards.
#pragma once

#include <map>
#include <random>
#include <string>

#include "appliance/Appliance.h"

namespace soak {

class Soak {
public:
    Soak(sim::Appliance& appliance, unsigned seed) : mAppliance(appliance), mRandom(seed) {}

    // One request of a random kind. Throws std::runtime_error when it does not end, or the service does.
    void request();
    // The wake-up word is still answered and a changed household fetched: nothing is stuck. Needs a search, so that the
    // models for it are in memory: a change of the language drops them.
    void proveAlive();

    // How often which kind ended how, as "cancelled: StandBy/None".
    const std::map<std::string, int>& ends() const { return mEnds; }

private:
    struct Kind;
    static const Kind kinds[];

    void spoken();
    void pushedToTalk();
    void woken();
    void cancelled();
    void closed();
    void startedTwice();
    void microphoneOff();
    void networkOff();
    void languageChanged();
    void wordChanged();
    void soundRestarted();
    void uiKilled();
    void uiSilent();
    void nothingSaid();
    void householdFaulty();

    void proveAnswered();
    void proveRefreshed();
    // Throws Ended when the service refuses.
    void start(const std::string& mode);
    void restoreSound();
    void sayUntilEnd();
    void awaitEnd();
    bool ended();
    bool chance(int percent);
    void pause(double longest);
    const char* command();
    const char* wakeUpWord() const { return mVexal ? "hey vexal" : "hey quorbit"; }

    sim::Appliance& mAppliance;
    std::mt19937 mRandom;
    std::map<std::string, int> mEnds;
    std::string mEnd;
    int mHouseholds = 0;
    bool mVexal = false;
    bool mBritish = false;
};

}  // namespace soak
