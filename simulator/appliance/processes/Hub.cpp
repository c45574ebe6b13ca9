// SPDX-License-Identifier: Apache-2.0
#include "appliance/processes/Hub.h"

#include <fstream>
#include <stdexcept>
#include <string>

#include "appliance/environment/Tree.h"
#include "appliance/processes/Until.h"

namespace sim {

namespace {

constexpr char kHousehold[] = R"({
    "account": {"guid": "guid-1", "client_id": "client-1", "access_token": "token-1"},
    "families": [{"id": "f1", "name": "Home", "users": [{"id": "u1", "name": "Ann"}, {"id": "u2", "name": "Ben"}]},
                 {"id": "f2", "name": "Cottage", "users": [{"id": "u3", "name": "Cleo"}]}],
    "faults": []})";

std::string portIn(const std::string& log) {
    std::ifstream file(log);
    std::string word, port;
    return file >> word >> port && word == "port" && !file.eof() ? port : "";
}

}  // namespace

Hub::Hub(const Folder& folder) : mFolder(folder), mHousehold(nlohmann::json::parse(kHousehold)) {
    write();
    const std::string log = folder / "hub.log";
    mServer = std::make_unique<Process>(
        std::vector<std::string>{builtProgram("simulator/hub-server/orvane-sim-hub"), folder / "household.json"}, log);
    std::string port;
    until("the hub server reports its port", [&] {
        port = portIn(log);
        if (port.empty() && !mServer->runs()) {
            throw std::runtime_error("the hub server ended during its start");
        }
        return !port.empty();
    });
    nlohmann::json account = mHousehold["account"];
    account["server_uri"] = "http://127.0.0.1:" + port;
    folder.write("account.json", account.dump());
}

void Hub::families(nlohmann::json list) {
    mHousehold["families"] = std::move(list);
    write();
}

void Hub::faults(nlohmann::json list) {
    mHousehold["faults"] = std::move(list);
    write();
}

// Replaces the file at once, so that the server never reads half of it.
void Hub::write() const {
    const std::string fresh = mFolder.write("household.new", mHousehold.dump());
    if (rename(fresh.c_str(), (mFolder / "household.json").c_str()) != 0) {
        throw std::runtime_error("cannot write the household");
    }
}

}  // namespace sim
