// SPDX-License-Identifier: Apache-2.0
#include "Fault.h"

namespace faults {

namespace {

constexpr double kRefreshSeconds = 20;
constexpr std::size_t kHugeBody = 100 << 20;

using nlohmann::json;

// Once the hub replies as usual again, the next refresh stores its users.
void awaitRefresh(Trial& trial, const std::string& name) {
    trial.appliance().hub().faults(json::array());
    trial.appliance().hub().families({{{"id", "f1"}, {"name", "Home"}, {"users", {{{"id", "u1"}, {"name", name}}}}}});
    trial.appliance().announceProfile();
    sim::until(
        "the hub's users are stored", [&] { return trial.appliance().users() == std::vector<std::string>{name}; },
        kRefreshSeconds);
}

void refreshWith(Trial& trial, const json& fault) {
    trial.appliance().hub().faults({fault});
    trial.appliance().announceProfile();
    trial.awaitLog("orvane-hub", kRefreshSeconds);
    awaitRefresh(trial, "after " + fault.at("kind").get<std::string>());
}

// A refresh that waits for the hub does not disturb the assistant.
void recordDuring(Trial& trial, const json& fault) {
    trial.appliance().hub().faults({fault});
    trial.appliance().announceProfile();
    sim::until("the service records", [&] { return trial.records(); });
    trial.report("still records");
    trial.awaitLog("orvane-hub", 2 * kRefreshSeconds);
    awaitRefresh(trial, "after " + fault.at("kind").get<std::string>());
}

Fault failing(const char* name, bool quick, json fault) {
    return {name, quick, [fault = std::move(fault)](Trial& trial) { refreshWith(trial, fault); }};
}

Fault hanging(const char* name, bool quick, json fault) {
    return {name, quick, [fault = std::move(fault)](Trial& trial) { recordDuring(trial, fault); }};
}

}  // namespace

Faults hubFaults() {
    return {failing("hub fails", false, {{"kind", "error"}, {"status", 503}}),
            failing("hub sends garbage", true, {{"kind", "garbage"}}),
            failing("hub breaks off", false, {{"kind", "half"}}),
            failing("hub redirects", false, {{"kind", "redirect"}, {"location", "http://127.0.0.1:1/"}}),
            failing("hub sends 100 MB", false, {{"kind", "body"}, {"body", std::string(kHugeBody, ' ')}}),
            failing("hub's reply never ends", false, {{"kind", "endless"}}),
            hanging("hub never replies", false, {{"kind", "silent"}}),
            hanging("hub sends a byte each second", false, {{"kind", "trickle"}, {"milliseconds", 1000}})};
}

}  // namespace faults
