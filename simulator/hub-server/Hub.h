// SPDX-License-Identifier: Apache-2.0
// The simulated hub: signs in clients and answers requests. Any thread.
#pragma once

#include <mutex>
#include <set>
#include <string>

#include "hub-server/Household.h"
#include "hub-server/Message.h"
#include "shared/Record.h"

namespace sim::hub {

class Hub {
public:
    explicit Hub(const std::string& householdFile) : mHousehold(householdFile), mRecord("hub") {}

    struct Outcome {
        Answer answer;
        nlohmann::json fault;  // null if there is none
    };
    Outcome take(const Request& request);
    Record& record() { return mRecord; }

private:
    Answer answer(const Request& request);
    Answer signIn(const Request& request);
    Answer users(const std::string& familyId);
    bool isSignedIn(const Request& request) const;

    std::mutex mMutex;
    Household mHousehold;
    std::set<std::string> mSessions;
    Record mRecord;
};

}  // namespace sim::hub
