// SPDX-License-Identifier: Apache-2.0
// The connection type without NetworkManager, in a private network namespace whose links appear and disappear.
#include <gtest/gtest.h>
#include <net_connection.h>
#include <sched.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "support/MainLoop.h"

namespace {

// Why this process could not enter a private network namespace; empty if it could.
std::string noNamespace;

// Root enters a network namespace directly; another user first needs a user namespace in which it is root. Call it
// before the process has threads.
void enterNetworkNamespace() {
    const std::string user = "0 " + std::to_string(getuid()) + " 1";
    if (unshare(CLONE_NEWNET) == 0) {
        return;
    }
    if (unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0 || !(std::ofstream("/proc/self/uid_map") << user << std::flush)) {
        noNamespace = std::strerror(errno);
    }
}

bool ip(const std::string& words) {
    return system(("ip " + words).c_str()) == 0;
}

bool useIpv6(const std::string& name, bool use) {
    return bool(std::ofstream("/proc/sys/net/ipv6/conf/" + name + "/disable_ipv6") << !use << std::flush);
}

// Plugs in a cable: `name` is the machine's end, "peer" the other.
void plug(const std::string& name) {
    ASSERT_TRUE(ip("link add " + name + " type veth peer name peer"));
    // Without IPv6: the kernel adds and removes its IPv6 routes with the link, which would cause extra reports.
    ASSERT_TRUE(useIpv6(name, false) && useIpv6("peer", false));
    ASSERT_TRUE(ip("address add 192.0.2.2/24 dev " + name));
    ASSERT_TRUE(ip("link set peer up") && ip("link set " + name + " up"));
}

class ALink : public testing::Test {
protected:
    void SetUp() override {
        if (!noNamespace.empty()) {
            GTEST_SKIP() << "this machine does not permit a private network: " << noNamespace;
        }
        connection_create(&mConnection);
        ASSERT_EQ(type(), CONNECTION_TYPE_DISCONNECTED);
        connection_set_type_changed_cb(
            mConnection,
            [](connection_type_e changed, void* self) { static_cast<ALink*>(self)->mReported.push_back(changed); },
            this);
    }
    void TearDown() override {
        if (mConnection != nullptr) {
            connection_destroy(mConnection);
            EXPECT_TRUE(ip("link delete peer") && ip("-6 route flush type unreachable") &&
                        ip("-4 route flush type unreachable"));
            EXPECT_TRUE(runMainLoopUntil([this] { return type() == CONNECTION_TYPE_DISCONNECTED; }));
        }
    }
    connection_type_e type() const {
        connection_type_e now = CONNECTION_TYPE_OTHER;
        connection_get_type(mConnection, &now);
        return now;
    }
    bool isReported(connection_type_e expected) {
        return runMainLoopUntil([=] { return !mReported.empty() && mReported.back() == expected; }) &&
               type() == expected;
    }

    connection_h mConnection = nullptr;
    std::vector<connection_type_e> mReported;
};

}  // namespace

TEST_F(ALink, WithADefaultRouteConnectsUntilItIsTakenDown) {
    plug("up0");
    ASSERT_TRUE(ip("route add default via 192.0.2.1"));
    EXPECT_TRUE(isReported(CONNECTION_TYPE_ETHERNET));
    ASSERT_TRUE(ip("link set up0 down"));
    EXPECT_TRUE(isReported(CONNECTION_TYPE_DISCONNECTED));
    ASSERT_TRUE(ip("link set up0 up") && ip("route add default via 192.0.2.1"));
    EXPECT_TRUE(isReported(CONNECTION_TYPE_ETHERNET));
    EXPECT_EQ(mReported.size(), 3U) << "each change is reported once";
}

TEST_F(ALink, WithOnlyIpv6ConnectsUntilItIsTakenDown) {
    plug("up0");
    ASSERT_TRUE(useIpv6("up0", true));
    ASSERT_TRUE(ip("-6 address add 2001:db8::2/64 nodad dev up0") && ip("-6 route add default via 2001:db8::1"));
    EXPECT_TRUE(isReported(CONNECTION_TYPE_ETHERNET));
    ASSERT_TRUE(ip("link set up0 down"));
    EXPECT_TRUE(isReported(CONNECTION_TYPE_DISCONNECTED));
}

TEST_F(ALink, WhoseCableIsUnpluggedDisconnectsUntilItIsPluggedInAgain) {
    plug("up0");
    ASSERT_TRUE(ip("route add default via 192.0.2.1"));
    EXPECT_TRUE(isReported(CONNECTION_TYPE_ETHERNET));
    ASSERT_TRUE(ip("link set peer down"));
    EXPECT_TRUE(isReported(CONNECTION_TYPE_DISCONNECTED));
    ASSERT_TRUE(ip("link set peer up"));
    EXPECT_TRUE(isReported(CONNECTION_TYPE_ETHERNET));
}

TEST_F(ALink, OfAModemIsCellular) {
    plug("wwan0");
    ASSERT_TRUE(ip("route add default via 192.0.2.1"));
    EXPECT_TRUE(isReported(CONNECTION_TYPE_CELLULAR));
}

TEST_F(ALink, WithAnUnreachableDefaultRouteDoesNotConnect) {
    plug("up0");
    ASSERT_TRUE(ip("route add unreachable default metric 1") && ip("-6 route add unreachable default metric 1"));
    EXPECT_EQ(type(), CONNECTION_TYPE_DISCONNECTED);
    // Only this change is reported, so the refusing routes caused none.
    ASSERT_TRUE(ip("route add default via 192.0.2.1 metric 2"));
    EXPECT_TRUE(isReported(CONNECTION_TYPE_ETHERNET));
    EXPECT_EQ(mReported.size(), 1U);
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    enterNetworkNamespace();
    setenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent", 1);  // no NetworkManager
    setenv("PATH", (std::string(getenv("PATH")) + ":/usr/sbin:/sbin").c_str(), 1);
    ecore_app_no_system_modules();
    ecore_init();
    // Ecore is not shut down, because its SIGCHLD handler may still run on another thread.
    return RUN_ALL_TESTS();
}
