// SPDX-License-Identifier: Apache-2.0
#include "Support.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace hub_test {

namespace {

struct FreeRecords {
    void operator()(GSList* list) const noexcept { g_slist_free_full(list, free); }
};
using Records = std::unique_ptr<GSList, FreeRecords>;

// The machine's proxy must not serve the test's requests to its own server.
const bool hasNoProxy = setenv("no_proxy", "*", 1) == 0;

GSList* const kUntouched = reinterpret_cast<GSList*>(0x1);

// The list that a call returns.
Records taken(GSList* list, int result, int expected) {
    EXPECT_EQ(result, expected);
    EXPECT_EQ(list == kUntouched, result != KS_SERVER_OK);
    return Records(list == kUntouched ? nullptr : list);
}

}  // namespace

Connection openConnection() {
    ks_server_h server = nullptr;
    EXPECT_EQ(ks_server_create(&server), KS_SERVER_OK);
    return Connection(server);
}

Names familiesOf(const Connection& connection, int expected) {
    GSList* list = kUntouched;
    const int result = ks_server_profile_families_get(connection.get(), &list);
    const Records records = taken(list, result, expected);
    Names names;
    for (const GSList* node = records.get(); node != nullptr; node = node->next) {
        const auto& family = *static_cast<const ks_family_s*>(node->data);
        names.emplace_back(family.family_id, family.family_name);
    }
    return names;
}

Names usersOf(const Connection& connection, const std::string& family, int expected) {
    GSList* list = kUntouched;
    const int result = ks_server_profile_families_family_users_get(connection.get(), family.c_str(), &list);
    const Records records = taken(list, result, expected);
    Names names;
    for (const GSList* node = records.get(); node != nullptr; node = node->next) {
        const auto& user = *static_cast<const ks_family_user_s*>(node->data);
        names.emplace_back(user.user_id, user.user_name);
    }
    return names;
}

std::vector<std::string> logOf(const std::function<void()>& action) {
    testing::internal::CaptureStderr();
    action();
    std::istringstream text(testing::internal::GetCapturedStderr());
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line);
    }
    return lines;
}

WithAHub::WithAHub() {
    char pattern[] = "/tmp/orvane-hub-XXXXXX";
    mFolder = mkdtemp(pattern);
    setenv("ORVANE_SIM_RECORDS", mFolder.c_str(), 1);
    setHousehold("account", {{"guid", "guid"}, {"client_id", "client"}, {"access_token", "token"}});
}

WithAHub::~WithAHub() {
    unsetenv("ORVANE_HUB_CA");
    stop();
    std::filesystem::remove_all(mFolder);
}

void WithAHub::setHousehold(const char* key, const json& value) {
    mHousehold[key] = value;
    std::ofstream(mFolder + "/household.json") << mHousehold;
}

void WithAHub::start(int port, const openssl::Identity* identity) {
    mHub = std::make_unique<sim::hub::Hub>(mFolder + "/household.json");
    mServer = std::make_unique<sim::hub::Server>(*mHub, port, identity);
}

std::string WithAHub::uri(const std::string& scheme, const std::string& host) const {
    return scheme + "://" + host + ":" + std::to_string(port());
}

std::vector<std::string> WithAHub::requests() const {
    std::ifstream record(mFolder + "/hub.jsonl");
    std::vector<std::string> all;
    for (std::string line; std::getline(record, line);) {
        const json event = json::parse(line);
        if (event.at("event") == "request") {
            all.push_back(event.at("method").get<std::string>() + " " + event.at("path").get<std::string>());
        }
    }
    return all;
}

int WithAHub::signIn(const Connection& connection, const std::string& uri) const {
    return ks_server_sa_account_set(connection.get(), "guid", "token", "client", uri.c_str());
}

Connection WithAHub::signedIn() {
    start();
    Connection connection = openConnection();
    EXPECT_EQ(signIn(connection), KS_SERVER_OK);
    return connection;
}

}  // namespace hub_test
