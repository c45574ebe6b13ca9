// SPDX-License-Identifier: Apache-2.0
#include "apps/Account.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "shared/Later.h"

namespace sim {

namespace {

constexpr int kSucceeded = 0;
constexpr int kFailed = -1;
constexpr int kNoReply = 1;

constexpr Account::Behavior kBehaviors[] = {
    {"signed in", true, false, kSucceeded}, {"signed out", false, false, kSucceeded}, {"slow", true, true, kSucceeded},
    {"silent", false, false, kNoReply},     {"failing", false, false, kFailed},
};

const Account::Behavior& behavior(const std::string& name) {
    for (const Account::Behavior& known : kBehaviors) {
        if (name == known.name) {
            return known;
        }
    }
    throw std::runtime_error("unknown behavior " + name);
}

// Without the file, nobody is signed in.
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

Account::Account(const std::string& id) : Application(id), mBehavior(&kBehaviors[0]) {}

// Replies only after the call that brought the request has returned.
void Account::onLaunch(const Request& request) {
    if (request.operation == "get_service_status") {
        later(mBehavior->late ? mDelayMs : 0, [this, request, &chosen = *mBehavior] { answer(request, chosen); });
    }
}

void Account::answer(const Request& request, const Behavior& behavior) {
    record().write("status request", {{"behavior", behavior.name}});
    if (behavior.result == kFailed) {
        reply(request, kFailed, {{"errorMessage", {"the account server cannot be reached"}}});
    } else if (behavior.result == kSucceeded) {
        reply(request, kSucceeded, status(behavior.signedIn));
    }
}

void Account::onControl(const std::string& action, const std::string& argument) {
    if (action == "behavior") {
        mBehavior = &behavior(argument);
    } else if (action == "delay") {
        mDelayMs = static_cast<unsigned>(std::stoul(argument));
    } else if (action == "notify") {
        record().write("notification sent");
        sendEvent("event." + id() + ".notification", {});
    } else {
        Application::onControl(action, argument);
    }
}

}  // namespace sim
