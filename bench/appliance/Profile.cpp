// From the account service's notification until the local database has the household's users, fetched from a hub server
// over HTTP: 20 families with 10 users each.
#include <hub-server/Server.h>
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

// The users' names tell the round.
std::string household(int round) {
    json families = json::array();
    for (int family = 0; family < kFamilies; ++family) {
        json users = json::array();
        for (int user = 0; user < kUsers; ++user) {
            const std::string id = std::to_string(family) + "-" + std::to_string(user);
            users.push_back({{"id", "user-" + id}, {"name", "Person " + id + " " + std::to_string(round)}});
        }
        families.push_back({{"id", "family-" + std::to_string(family)}, {"name", "Home"}, {"users", users}});
    }
    return json{{"account", {{"guid", "g"}, {"client_id", "c"}, {"access_token", "t"}}}, {"families", families}}.dump();
}

bool holds(const std::vector<sim::Database::Fields>& users, int round) {
    const std::string tail = " " + std::to_string(round);
    if (users.size() != kFamilies * kUsers) {
        return false;
    }
    for (const auto& [key, value] : users.back()) {
        if (key == "userName") {
            return value.size() > tail.size() && value.compare(value.size() - tail.size(), tail.size(), tail) == 0;
        }
    }
    return false;
}

double awaitUsers(const sim::Appliance& appliance, int round) {
    for (const double end = sim::monotonicNow() + kWatchdogSeconds; sim::monotonicNow() < end;
         usleep(kPollMicroseconds)) {
        if (holds(appliance.table("Profile", "Profile"), round)) {
            return sim::monotonicNow();
        }
    }
    throw std::runtime_error("the users of the household never came");
}

}  // namespace

void measureProfile(sim::Appliance& appliance, Figures& figures) {
    const std::string file = appliance.folder().write("household.json", household(0));
    sim::hub::Hub hub(file);
    const sim::hub::Server server(hub, 0, nullptr);
    appliance.folder().write("account.json", json{{"guid", "g"},
                                                  {"client_id", "c"},
                                                  {"access_token", "t"},
                                                  {"server_uri", "http://127.0.0.1:" + std::to_string(server.port())}}
                                                 .dump());
    appliance.launch(sim::kAccount);
    appliance.startService();
    awaitUsers(appliance, 0);
    for (int round = 1; round <= kRounds; ++round) {
        appliance.folder().write("household.json", household(round));
        appliance.turnPage();
        appliance.order(sim::kAccount, "notify");
        const double notified = appliance.await(sim::kAccount, {{"event", "notified"}}).at("at").get<double>();
        figures.add("profile refresh ms", 1000 * (awaitUsers(appliance, round) - notified));
    }
    appliance.stopService();
}

}  // namespace bench
