// SPDX-License-Identifier: Apache-2.0
#include <fstream>
#include <iterator>

#include "Fault.h"
#include "appliance/environment/Tree.h"

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

std::string contentOf(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

// A hub with a certificate that nobody has signed. The account refers to it for as long as this object exists.
class SecureHub {
public:
    explicit SecureHub(Trial& trial)
        : mFolder(trial.appliance().folder()),
          mServer({sim::builtProgram("simulator/hub-server/orvane-sim-hub"), mFolder / "household.json",
                   "--certificate", mFolder / "hub.pem", "--key", mFolder / "hub.key"},
                  mFolder / "secure-hub.log") {
        sim::until("the hub with a certificate reports its port",
                   [this] { return contentOf(mFolder / "secure-hub.log").rfind("port ", 0) == 0; });
        json account = json::parse(mAccount);
        const std::string port = contentOf(mFolder / "secure-hub.log").substr(sizeof "port " - 1);
        account["server_uri"] = "https://127.0.0.1:" + port.substr(0, port.find('\n'));
        mFolder.write("account.json", account.dump());
    }
    ~SecureHub() { mFolder.write("account.json", mAccount); }
    SecureHub(const SecureHub&) = delete;
    SecureHub& operator=(const SecureHub&) = delete;

private:
    const sim::Folder& mFolder;
    const std::string mAccount = contentOf(mFolder / "account.json");
    sim::Process mServer;
};

void refreshWithBadCertificate(Trial& trial) {
    const auto& folder = trial.appliance().folder();
    if (trial.run({"openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256", "-nodes", "-subj",
                   "/CN=127.0.0.1", "-out", folder / "hub.pem", "-keyout", folder / "hub.key"}) != 0) {
        throw CannotRun{"the program openssl is not installed"};
    }
    {
        const SecureHub hub(trial);
        trial.appliance().announceProfile();
        trial.awaitLog("orvane-hub", kRefreshSeconds);
    }
    awaitRefresh(trial, "after a bad certificate");
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
            failing("hub sends a compression bomb", false, {{"kind", "bomb"}, {"megabytes", 1000}}),
            {"hub with a bad certificate", false, refreshWithBadCertificate},
            failing("hub's reply never ends", false, {{"kind", "endless"}}),
            hanging("hub never replies", false, {{"kind", "silent"}}),
            hanging("hub sends a byte each second", false, {{"kind", "trickle"}, {"milliseconds", 1000}})};
}

}  // namespace faults
