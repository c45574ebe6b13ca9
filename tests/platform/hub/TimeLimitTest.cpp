// SPDX-License-Identifier: Apache-2.0
// Slow hubs, with limits much shorter than the module's own.
#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <chrono>

#include "NameServer.h"
#include "Support.h"
#include "hub/Connection.h"
#include "hub/Error.h"

namespace hub_test {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr long kShort = 300;
constexpr long kLong = 60000;
// Far below the longer limit, far above what a busy machine adds to the shorter one.
constexpr auto kSoon = std::chrono::seconds(20);

class ASlowHub : public WithAHub {};

int resultOfSignIn(hub::Connection& connection, const std::string& uri) {
    try {
        connection.signIn("guid", "token", "client", uri);
        return KS_SERVER_OK;
    } catch (const hub::Error& fault) {
        return fault.code();
    }
}

// Signs in to a hub that does not reply. Must return after the shorter limit, and before the longer one.
void expectTimeOut(const curl::Limits& limits, const std::string& uri) {
    hub::Connection connection(limits);
    const auto start = Clock::now();
    EXPECT_EQ(resultOfSignIn(connection, uri), KS_SERVER_ERROR_TIMED_OUT);
    EXPECT_GE(Clock::now() - start, milliseconds(kShort - 10));
    EXPECT_LT(Clock::now() - start, kSoon);
}

constexpr curl::Limits kShortConnect{kShort, kLong, 1 << 20};
constexpr curl::Limits kShortRequest{kLong, kShort, 1 << 20};

// Listens and never accepts: a connection never completes while the queue is full.
class FullQueue {
public:
    explicit FullQueue(int waiting) : mListener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* where = reinterpret_cast<sockaddr*>(&address);
        EXPECT_EQ(bind(mListener.get(), where, size), 0);
        EXPECT_EQ(listen(mListener.get(), 0), 0);
        EXPECT_EQ(getsockname(mListener.get(), where, &size), 0);
        mPort = ntohs(address.sin_port);
        for (int i = 0; i < waiting; ++i) {
            mWaiting.emplace_back(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
            connect(mWaiting.back().get(), where, size);
        }
    }
    std::string uri(const std::string& scheme) const { return scheme + "://127.0.0.1:" + std::to_string(mPort); }

private:
    sim::hub::Socket mListener;
    int mPort = 0;
    std::vector<sim::hub::Socket> mWaiting;
};

TEST(TheLimits, AreFiveSecondsToConnectAndFifteenForARequest) {
    EXPECT_EQ(hub::kLimits.connectMilliseconds, 5000);
    EXPECT_EQ(hub::kLimits.requestMilliseconds, 15000);
}

TEST(AHubThatDoesNotAcceptConnections, TimesOutAfterTheConnectionLimit) {
    const FullQueue queue(4);
    expectTimeOut(kShortConnect, queue.uri("http"));
}

TEST(AHubThatDoesNotStartTls, TimesOutAfterTheConnectionLimit) {
    const FullQueue queue(0);
    expectTimeOut(kShortConnect, queue.uri("https"));
}

TEST(AHubWhoseNameIsNotResolved, TimesOutAfterTheConnectionLimit) {
    const SilentNameServer nameServer;
    expectTimeOut(kShortConnect, "http://hub.invalid");
    EXPECT_EQ(nameServer.asked(), 1);
}

TEST_F(ASlowHub, ThatSendsNothingTimesOutAfterTheRequestLimit) {
    start();
    setFaults({{{"kind", "silent"}}});
    expectTimeOut(kShortRequest, uri());
}

TEST_F(ASlowHub, ThatSendsByteByByteTimesOutAfterTheRequestLimit) {
    start();
    setFaults({{{"kind", "trickle"}, {"milliseconds", 20}}});
    expectTimeOut(kShortRequest, uri());
}

TEST_F(ASlowHub, ThatStopsWithinAReplyTimesOutAfterTheRequestLimit) {
    start();
    setFaults({{{"kind", "stall"}}});
    expectTimeOut(kShortRequest, uri());
}

TEST_F(ASlowHub, ThatStopsWithinAnErrorReplyReturnsItsStatus) {
    start();
    setFaults({{{"kind", "stall"}, {"status", 503}}});
    hub::Connection connection(curl::Limits{kLong, kLong, 1 << 20});
    const auto begin = Clock::now();
    EXPECT_EQ(resultOfSignIn(connection, uri()), 503);
    EXPECT_LT(Clock::now() - begin, kSoon);
}

TEST_F(ASlowHub, MayTakeLongerThanTheConnectionLimit) {
    start();
    setFaults({{{"kind", "slow"}, {"milliseconds", 1100}}});
    hub::Connection connection(curl::Limits{1000, kLong, 1 << 20});
    const auto begin = Clock::now();
    EXPECT_EQ(resultOfSignIn(connection, uri()), KS_SERVER_OK);
    EXPECT_GE(Clock::now() - begin, milliseconds(1090));
}

TEST_F(ASlowHub, ReceivesTheNextRequest) {
    setFamilies({{{"id", "f"}}});
    start();
    hub::Connection connection(curl::Limits{kLong, 1000, 1 << 20});
    ASSERT_EQ(resultOfSignIn(connection, uri()), KS_SERVER_OK);
    setFaults({{{"request", 1}, {"kind", "silent"}}});
    EXPECT_THROW(connection.families(), hub::Error);
    EXPECT_EQ(connection.families().size(), 1U);
}

}  // namespace

}  // namespace hub_test
