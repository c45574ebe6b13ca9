// SPDX-License-Identifier: Apache-2.0
// A hub server inside the test, with a household of the test's own, and the room's records as plain lists.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "hub-server/Server.h"
#include "kelso_server.h"

namespace hub_test {

using nlohmann::json;

struct Destroy {
    void operator()(ks_server_h server) const noexcept { ks_server_destroy(server); }
};
using Session = std::unique_ptr<ks_server_s, Destroy>;
// Id and name.
using Names = std::vector<std::pair<std::string, std::string>>;

Session openSession();
// Both fail the test unless the call gives `expected`, and unless a failure leaves the list as it was.
Names familiesOf(const Session& session, int expected = KS_SERVER_OK);
Names usersOf(const Session& session, const std::string& family, int expected = KS_SERVER_OK);

// What the room wrote to its log meanwhile, as lines.
std::vector<std::string> logOf(const std::function<void()>& action);

// Account "guid", "token", "client"; nobody in it until a test says who.
class WithAHub : public testing::Test {
protected:
    WithAHub();
    ~WithAHub() override;

    const std::string& folder() const { return mFolder; }
    void setFamilies(const json& families) { setHousehold("families", families); }
    void setFaults(const json& faults) { setHousehold("faults", faults); }
    // As an answer's whole text.
    void answerWith(const std::string& body) { setFaults({{{"kind", "body"}, {"body", body}}}); }

    // Port 0: any free one.
    void start(int port = 0, const sim::hub::Identity* identity = nullptr);
    void stop() { mServer.reset(); }
    int port() const { return mServer->port(); }
    int connections() const { return mServer->connections(); }
    std::string uri(const std::string& scheme = "http", const std::string& host = "127.0.0.1") const;
    // "METHOD path" of all requests that reached the server.
    std::vector<std::string> requests() const;

    int signIn(const Session& session, const std::string& uri) const;
    int signIn(const Session& session) const { return signIn(session, uri()); }
    // Of a plain server that is started for it.
    Session signedIn();

private:
    void setHousehold(const char* key, const json& value);

    std::string mFolder;
    json mHousehold;
    std::unique_ptr<sim::hub::Hub> mHub;
    std::unique_ptr<sim::hub::Server> mServer;
};

}  // namespace hub_test
