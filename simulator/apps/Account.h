// SPDX-License-Identifier: Apache-2.0
// The account service: answers get_service_status with the credentials that $ORVANE_SIM_ACCOUNT holds, a JSON object
// with guid, access_token, client_id and server_uri that is read for every answer.
// Orders: behave signed in|signed out|slow|silent|failing: how it answers from now on (at first signed in); delay
// MILLISECONDS: what slow means (at first 7000); notify: announces that a profile has changed.
#pragma once

#include "lib/Application.h"

namespace sim {

class Account : public Application {
public:
    struct Behaviour {
        const char* name;
        bool signedIn;
        bool late;
        int result;  // 0: succeeded, -1: failed, kNoReply
    };

    explicit Account(const std::string& id);

private:
    void onLaunch(const Request& request) override;
    void onOrder(const std::string& order, const std::string& argument) override;
    void answer(const Request& request, const Behaviour& behaviour);

    const Behaviour* mBehaviour;
    unsigned mDelayMs = 7000;
};

}  // namespace sim
