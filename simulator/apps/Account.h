// SPDX-License-Identifier: Apache-2.0
// The account service. It replies to get_service_status with the credentials in the file $ORVANE_SIM_ACCOUNT, a JSON
// object with guid, access_token, client_id, and server_uri. It reads the file for every reply.
// Actions:
//   behavior signed in|signed out|slow|silent|failing   how it replies from now on; initially "signed in"
//   delay MILLISECONDS                                  of the behavior "slow"; initially 7000
//   notify                                              announces that a profile has changed
#pragma once

#include "shared/Application.h"

namespace sim {

class Account : public Application {
public:
    struct Behavior {
        const char* name;
        bool signedIn;
        bool late;
        int result;  // of the reply: 0 for success, -1 for failure; kNoReply for none
    };

    explicit Account(const std::string& id);

private:
    void onLaunch(const Request& request) override;
    void onControl(const std::string& action, const std::string& argument) override;
    void answer(const Request& request, const Behavior& behavior);

    const Behavior* mBehavior;
    unsigned mDelayMs = 7000;
};

}  // namespace sim
