// SPDX-License-Identifier: Apache-2.0
// The profile refresh: from the account service's notification until the local database has the users of 20 families
// with 10 users each. The hub is reached over HTTP.
#include <unistd.h>

#include "appliance/Measures.h"

namespace bench {

namespace {

using nlohmann::json;

constexpr int kFamilies = 20;
constexpr int kUsers = 10;
constexpr int kRounds = 15;
constexpr useconds_t kPollMicroseconds = 1000;
constexpr double kWatchdogSeconds = 20;

std::string nameOf(int family, int user, int round) {
    return "Person " + std::to_string(family) + "-" + std::to_string(user) + " " + std::to_string(round);
}

// The names of the users contain the round.
json families(int round) {
    json list = json::array();
    for (int family = 0; family < kFamilies; ++family) {
        json users = json::array();
        for (int user = 0; user < kUsers; ++user) {
            const std::string id = std::to_string(family) + "-" + std::to_string(user);
            users.push_back({{"id", "user-" + id}, {"name", nameOf(family, user, round)}});
        }
        list.push_back({{"id", "family-" + std::to_string(family)}, {"name", "Home"}, {"users", users}});
    }
    return list;
}

bool hasUsersOf(const sim::Appliance& appliance, int round) {
    const std::vector<std::string> names = appliance.users();
    return names.size() == kFamilies * kUsers && names.back() == nameOf(kFamilies - 1, kUsers - 1, round);
}

double awaitUsers(const sim::Appliance& appliance, int round) {
    for (const double end = sim::monotonicNow() + kWatchdogSeconds; sim::monotonicNow() < end;
         usleep(kPollMicroseconds)) {
        if (hasUsersOf(appliance, round)) {
            return sim::monotonicNow();
        }
    }
    throw std::runtime_error("the users of the household are not stored");
}

}  // namespace

void measureProfile(sim::Appliance& appliance, Figures& figures) {
    appliance.hub().families(families(0));
    appliance.service().start();
    awaitUsers(appliance, 0);
    for (int round = 1; round <= kRounds; ++round) {
        appliance.hub().families(families(round));
        appliance.turnPage();
        appliance.announceProfile();
        const double notified = appliance.await(sim::kAccount, {{"event", "notification sent"}}).at("at").get<double>();
        figures.add("profile refresh ms", 1000 * (awaitUsers(appliance, round) - notified));
    }
    appliance.service().stop();
}

}  // namespace bench
