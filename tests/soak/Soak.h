// SPDX-License-Identifier: Apache-2.0
// A series of requests of random kinds, with faults at random moments. Each request must end with a permitted state,
// and the service must answer afterwards.
#pragma once

#include <map>
#include <random>
#include <string>

#include "appliance/Appliance.h"

namespace soak {

// Watchdog of a request, which may contain 7 s without speech, 10 s of speech, and 30 s of processing.
inline constexpr double kRequestSeconds = 60;

class Soak {
public:
    Soak(sim::Appliance& appliance, unsigned seed) : mAppliance(appliance), mRandom(seed) {}

    // Makes one request of a random kind. Throws std::runtime_error when it does not end or when the service ends.
    void request();
    // Proves that the service still answers the wake word and refreshes the profile. The search loads its models, which
    // a change of the language unloads, so that all memory samples include them.
    void proveAlive();

    // The number of requests for each kind and end, such as "canceled: StandBy/None".
    const std::map<std::string, int>& ends() const { return mEnds; }

private:
    struct Kind;
    static const Kind kinds[];

    void spoken();
    void pushedToTalk();
    void woken();
    void canceled();
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
    // Returns when the service records. Throws Refused when it refuses the request.
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
