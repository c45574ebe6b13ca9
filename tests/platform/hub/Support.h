// SPDX-License-Identifier: Apache-2.0
// A hub server in the test process with a separate household, and the module's records as plain lists.
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
using Connection = std::unique_ptr<ks_server_s, Destroy>;
// Id and name.
using Names = std::vector<std::pair<std::string, std::string>>;

Connection openConnection();
// Both fail the test unless the call returns `expected`, and unless a failure leaves the list unchanged.
Names familiesOf(const Connection& connection, int expected = KS_SERVER_OK);
Names usersOf(const Connection& connection, const std::string& family, int expected = KS_SERVER_OK);

// The lines that the platform logs during `action`.
std::vector<std::string> logOf(const std::function<void()>& action);

// The account is "guid", "token", "client". The household is empty until a test fills it.
class WithAHub : public testing::Test {
protected:
    WithAHub();
    ~WithAHub() override;

    const std::string& folder() const { return mFolder; }
    void setFamilies(const json& families) { setHousehold("families", families); }
    void setFaults(const json& faults) { setHousehold("faults", faults); }
    // Every reply has this body.
    void replyWith(const std::string& body) { setFaults({{{"kind", "body"}, {"body", body}}}); }

    // Port 0 selects a free port.
    void start(int port = 0, const openssl::Identity* identity = nullptr);
    void stop() { mServer.reset(); }
    int port() const { return mServer->port(); }
    int sockets() const { return mServer->connections(); }
    std::string uri(const std::string& scheme = "http", const std::string& host = "127.0.0.1") const;
    // "METHOD path" of each request that the server received.
    std::vector<std::string> requests() const;

    int signIn(const Connection& connection, const std::string& uri) const;
    int signIn(const Connection& connection) const { return signIn(connection, uri()); }
    // Starts a server without TLS and signs in.
    Connection signedIn();

private:
    void setHousehold(const char* key, const json& value);

    std::string mFolder;
    json mHousehold;
    std::unique_ptr<sim::hub::Hub> mHub;
    std::unique_ptr<sim::hub::Server> mServer;
};

}  // namespace hub_test
