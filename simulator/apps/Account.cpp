// SPDX-License-Identifier: Apache-2.0
#include "apps/Account.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "lib/Later.h"

namespace sim {

namespace {

constexpr int kSucceeded = 0;
constexpr int kFailed = -1;
constexpr int kNoReply = 1;

constexpr Account::Behaviour kBehaviours[] = {
    {"signed in", true, false, kSucceeded}, {"signed out", false, false, kSucceeded}, {"slow", true, true, kSucceeded},
    {"silent", false, false, kNoReply},     {"failing", false, false, kFailed},
};

const Account::Behaviour& behaviour(const std::string& name) {
    for (const Account::Behaviour& known : kBehaviours) {
        if (name == known.name) {
            return known;
        }
    }
    throw std::runtime_error("an account service is not " + name);
}

// Without a file nobody has signed in.
Extras status(bool signedIn) {
    const char* file = getenv("ORVANE_SIM_ACCOUNT");
    std::ifstream stream(file != nullptr ? file : "");
    if (!signedIn || !stream) {
        return {{"quorbit_account_status", {"false"}}};
    }
    const auto account = nlohmann::json::parse(stream);
    Extras extras{{"quorbit_account_status", {"true"}}};
    for (const char* name : {"guid", "access_token", "client_id", "server_uri"}) {
        extras[std::string("quorbit_account_") + name] = {account.at(name).get<std::string>()};
    }
    return extras;
}

}  // namespace

Account::Account(const std::string& id) : Application(id), mBehaviour(&kBehaviours[0]) {}

// Never before the request itself has returned.
void Account::onLaunch(const Request& request) {
    if (request.operation == "get_service_status") {
        later(mBehaviour->late ? mDelayMs : 0, [this, request, &chosen = *mBehaviour] { answer(request, chosen); });
    }
}

void Account::answer(const Request& request, const Behaviour& behaviour) {
    record().write("status asked", {{"behaviour", behaviour.name}});
    if (behaviour.result == kFailed) {
        reply(request, kFailed, {{"errorMessage", {"the account server cannot be reached"}}});
    } else if (behaviour.result == kSucceeded) {
        reply(request, kSucceeded, status(behaviour.signedIn));
    }
}

void Account::onOrder(const std::string& order, const std::string& argument) {
    if (order == "behave") {
        mBehaviour = &behaviour(argument);
    } else if (order == "delay") {
        mDelayMs = static_cast<unsigned>(std::stoul(argument));
    } else if (order == "notify") {
        record().write("notified");
        sendEvent("event." + id() + ".notification", {});
    } else {
        Application::onOrder(order, argument);
    }
}

}  // namespace sim
