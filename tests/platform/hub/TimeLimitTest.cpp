// SPDX-License-Identifier: Apache-2.0
// Hubs that let one wait: with limits much shorter than the room's own.
#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <chrono>

#include "NameServer.h"
#include "Support.h"
#include "hub/Fault.h"
#include "hub/Session.h"

namespace hub_test {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr long kShort = 300;
constexpr long kLong = 60000;
// Far below the longer limit, far above what a busy machine adds to the shorter one.
constexpr auto kSoon = std::chrono::seconds(20);

class AHubThatLetsOneWait : public WithAHub {};

int resultOfSignIn(ks_server_s& session, const std::string& uri) {
    try {
        session.signIn("guid", "token", "client", uri);
        return KS_SERVER_OK;
    } catch (const hub::Fault& fault) {
        return fault.code();
    }
}

// Signs in at what does not answer, and must come back between the shorter and the longer limit.
void expectTimeOut(const curl::Limits& limits, const std::string& uri) {
    ks_server_s session(limits);
    const auto start = Clock::now();
    EXPECT_EQ(resultOfSignIn(session, uri), KS_SERVER_ERROR_TIMED_OUT);
    EXPECT_GE(Clock::now() - start, milliseconds(kShort - 10));
    EXPECT_LT(Clock::now() - start, kSoon);
}

constexpr curl::Limits kShortConnect{kShort, kLong, 1 << 20};
constexpr curl::Limits kShortRequest{kLong, kShort, 1 << 20};

// Listens and takes nobody in: connecting to it never ends once its queue is full.
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

TEST(TheRoomsLimits, AreFiveSecondsToConnectAndFifteenForAll) {
    EXPECT_EQ(hub::kLimits.connectMilliseconds, 5000);
    EXPECT_EQ(hub::kLimits.requestMilliseconds, 15000);
}

TEST(AHubThatCannotBeConnectedTo, IsGivenUpAfterTheConnectionsLimit) {
    const FullQueue queue(4);
    expectTimeOut(kShortConnect, queue.uri("http"));
}

TEST(AHubThatDoesNotSayWhoItIs, IsGivenUpAfterTheConnectionsLimit) {
    const FullQueue queue(0);
    expectTimeOut(kShortConnect, queue.uri("https"));
}

TEST(AHubWhoseNameIsLookedUpForLong, IsGivenUpAfterTheConnectionsLimit) {
    const SilentNameServer nameServer;
    expectTimeOut(kShortConnect, "http://hub.invalid");
    EXPECT_EQ(nameServer.asked(), 1);
}

TEST_F(AHubThatLetsOneWait, WithoutAWordIsGivenUpAfterTheWholeLimit) {
    start();
    setFaults({{{"kind", "silent"}}});
    expectTimeOut(kShortRequest, uri());
}

TEST_F(AHubThatLetsOneWait, WithEveryByteIsGivenUpAfterTheWholeLimit) {
    start();
    setFaults({{{"kind", "trickle"}, {"milliseconds", 20}}});
    expectTimeOut(kShortRequest, uri());
}

TEST_F(AHubThatLetsOneWait, WithTheRestOfAnAnswerIsGivenUpAfterTheWholeLimit) {
    start();
    setFaults({{{"kind", "stall"}}});
    expectTimeOut(kShortRequest, uri());
}

TEST_F(AHubThatLetsOneWait, WithTheRestOfAFailureIsNotWaitedFor) {
    start();
    setFaults({{{"kind", "stall"}, {"status", 503}}});
    ks_server_s session(curl::Limits{kLong, kLong, 1 << 20});
    const auto begin = Clock::now();
    EXPECT_EQ(resultOfSignIn(session, uri()), 503);
    EXPECT_LT(Clock::now() - begin, kSoon);
}

TEST_F(AHubThatLetsOneWait, LongerThanItTookToConnectIsWaitedFor) {
    start();
    setFaults({{{"kind", "slow"}, {"milliseconds", 1100}}});
    ks_server_s session(curl::Limits{1000, kLong, 1 << 20});
    const auto begin = Clock::now();
    EXPECT_EQ(resultOfSignIn(session, uri()), KS_SERVER_OK);
    EXPECT_GE(Clock::now() - begin, milliseconds(1090));
}

TEST_F(AHubThatLetsOneWait, IsAskedAgainNextTime) {
    setFamilies({{{"id", "f"}}});
    start();
    ks_server_s session(curl::Limits{kLong, 1000, 1 << 20});
    ASSERT_EQ(resultOfSignIn(session, uri()), KS_SERVER_OK);
    setFaults({{{"request", 1}, {"kind", "silent"}}});
    EXPECT_THROW(session.families(), hub::Fault);
    EXPECT_EQ(session.families().size(), 1U);
}

}  // namespace

}  // namespace hub_test
