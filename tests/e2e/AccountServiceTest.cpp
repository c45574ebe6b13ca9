// SPDX-License-Identifier: Apache-2.0
// The simulated account service.
#include <gtest/gtest.h>

#include <cstdlib>
#include <mutex>

#include "appliance/Appliance.h"
#include "dbus/Interfaces.h"
#include "gio/IoThread.h"
#include "shared/Request.h"

using sim::Appliance;

namespace {

struct Reply {
    std::string token;
    int result;
    sim::Extras extras;
};

// An application that requests the status of the account. It receives the replies on a separate thread.
class Client {
public:
    void request(const char* token) {
        sim::sendRequest(mBus, sim::kAccount, {"get_service_status", "", {}, token, ""});
    }
    // The first reply.
    Reply awaitReply() {
        sim::until("the account service replies", [this] { return !replies().empty(); });
        return replies().front();
    }
    std::vector<Reply> replies() {
        const std::lock_guard lock(mMutex);
        return mReplies;
    }

private:
    void onCall(gio::MethodCall& call) {
        const auto [token, result, extras] = call.arguments().fields<std::string, int, sim::WireExtras>();
        const std::lock_guard lock(mMutex);
        mReplies.push_back({token, result, sim::fromWire(extras)});
        call.reply();
    }

    std::mutex mMutex;
    std::vector<Reply> mReplies;
    gio::IoThread mThread;
    gio::Connection mBus = gio::Connection::open(getenv("DBUS_SESSION_BUS_ADDRESS"), mThread.context());
    gio::Registration mObject = mBus.exportObject(sim::kApplicationPath, dbus::interface(sim::kApplicationInterface),
                                                  [this](gio::MethodCall& call) { onCall(call); });
};

void signIn(const Appliance& appliance) {
    appliance.folder().write("account.json", R"({"guid": "g1", "access_token": "t1", "client_id": "c1",
                                                 "server_uri": "http://127.0.0.1:1"})");
}

}  // namespace

TEST(TheAccountService, RepliesWithTheCredentialsOfTheAccount) {
    Appliance appliance;
    signIn(appliance);
    Client client;
    client.request("first");
    const Reply reply = client.awaitReply();
    EXPECT_EQ(reply.token, "first");
    EXPECT_EQ(reply.result, 0);
    const sim::Extras expected{{"quorbit_account_status", {"true"}},
                               {"quorbit_account_guid", {"g1"}},
                               {"quorbit_account_access_token", {"t1"}},
                               {"quorbit_account_client_id", {"c1"}},
                               {"quorbit_account_server_uri", {"http://127.0.0.1:1"}}};
    EXPECT_EQ(reply.extras, expected);
}

TEST(TheAccountService, ReportsThatNobodyIsSignedIn) {
    Appliance appliance;
    signIn(appliance);
    appliance.control(sim::kAccount, "behavior", "signed out");
    Client client;
    client.request("token");
    const Reply reply = client.awaitReply();
    EXPECT_EQ(reply.result, 0);
    EXPECT_EQ(reply.extras, (sim::Extras{{"quorbit_account_status", {"false"}}}));
}

TEST(TheAccountService, CanFailWithAReason) {
    Appliance appliance;
    appliance.control(sim::kAccount, "behavior", "failing");
    Client client;
    client.request("token");
    const Reply reply = client.awaitReply();
    EXPECT_EQ(reply.result, -1);
    EXPECT_EQ(reply.extras.count("errorMessage"), 1u);
}

TEST(TheAccountService, CanBeSlowOrSilent) {
    Appliance appliance;
    Client client;
    appliance.control(sim::kAccount, "behavior", "silent");
    client.request("without a reply");
    appliance.control(sim::kAccount, "delay", "300");
    appliance.control(sim::kAccount, "behavior", "slow");
    client.request("slow");
    const double requested = sim::monotonicNow();
    EXPECT_EQ(client.awaitReply().token, "slow");
    EXPECT_GE(sim::monotonicNow() - requested, 0.29);
    EXPECT_EQ(client.replies().size(), 1u);
    EXPECT_THROW(appliance.control(sim::kAccount, "behavior", "moody"), std::runtime_error);
}
