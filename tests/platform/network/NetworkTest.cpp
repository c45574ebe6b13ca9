// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <net_connection.h>

#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

#include "ManagerStandIn.h"
#include "bus/SessionBus.h"
#include "network/Route.h"
#include "support/MainLoop.h"
#include "support/PrivateBus.h"

namespace {

constexpr std::uint32_t DISCONNECTED = 20, CONNECTED_LOCAL = 50, CONNECTED_SITE = 60, CONNECTED_GLOBAL = 70;

std::string systemBus() {
    const std::string& address = privateBusAddress();
    setenv("DBUS_SYSTEM_BUS_ADDRESS", address.c_str(), 1);
    return address;
}

// A static object creates the connection before main(), as in the product.
struct Connection {
    Connection() {
        systemBus();
        result = connection_create(&handle);
    }
    ~Connection() { connection_destroy(handle); }
    connection_h handle = nullptr;
    int result = -1;
} connection;

connection_type_e type() {
    connection_type_e now = CONNECTION_TYPE_OTHER;
    EXPECT_EQ(connection_get_type(connection.handle, &now), CONNECTION_ERROR_NONE);
    return now;
}

class AConnection : public testing::Test {
protected:
    AConnection() {
        type();  // so that only later values count as changes
        connection_set_type_changed_cb(
            connection.handle,
            [](connection_type_e changed, void* self) {
                EXPECT_TRUE(eina_main_loop_is());
                static_cast<AConnection*>(self)->mReported.push_back(changed);
            },
            this);
    }
    ~AConnection() override {
        connection_unset_type_changed_cb(connection.handle);
        mManager.reset();
        // The next test starts with the type of the machine's default route.
        EXPECT_TRUE(becomes(network::kindOfDefaultRoute()));
    }
    static bool becomes(connection_type_e expected) {
        return runMainLoopUntil([=] { return type() == expected; });
    }
    bool isReported(connection_type_e expected) {
        return runMainLoopUntil([=] { return !mReported.empty() && mReported.back() == expected; });
    }

    std::vector<connection_type_e> mReported;
    std::unique_ptr<ManagerStandIn> mManager = std::make_unique<ManagerStandIn>(systemBus());
};

}  // namespace

TEST_F(AConnection, IsCreatedBeforeMain) {
    EXPECT_EQ(connection.result, CONNECTION_ERROR_NONE);
}

TEST_F(AConnection, WithoutAManagerHasTheTypeOfTheDefaultRoute) {
    EXPECT_TRUE(becomes(network::kindOfDefaultRoute()));
}

TEST_F(AConnection, HasTheTypeThatTheManagerReports) {
    const struct {
        std::uint32_t state;
        const char* type;
        connection_type_e expected;
    } rows[] = {
        {CONNECTED_GLOBAL, "802-11-wireless", CONNECTION_TYPE_WIFI},
        {CONNECTED_GLOBAL, "802-3-ethernet", CONNECTION_TYPE_ETHERNET},
        {DISCONNECTED, "", CONNECTION_TYPE_DISCONNECTED},
        {CONNECTED_SITE, "gsm", CONNECTION_TYPE_CELLULAR},
        {DISCONNECTED, "802-11-wireless", CONNECTION_TYPE_DISCONNECTED},
        {CONNECTED_GLOBAL, "vpn", CONNECTION_TYPE_OTHER},
        {CONNECTED_LOCAL, "", CONNECTION_TYPE_DISCONNECTED},
    };
    mManager->appear();
    for (const auto& row : rows) {
        mManager->become(row.state, row.type);
        EXPECT_TRUE(becomes(row.expected)) << row.state << " " << row.type;
        EXPECT_TRUE(isReported(row.expected)) << row.state << " " << row.type;
    }
}

TEST_F(AConnection, FollowsAManagerThatAppearsAndDisappears) {
    mManager->become(CONNECTED_GLOBAL, "802-11-wireless");
    mManager->appear();
    EXPECT_TRUE(isReported(CONNECTION_TYPE_WIFI));
    mManager->disappear();
    EXPECT_TRUE(isReported(network::kindOfDefaultRoute()));
}

TEST_F(AConnection, ThatDoesNotChangeReportsNothing) {
    mManager->become(CONNECTED_SITE, "802-11-wireless");
    mManager->appear();
    ASSERT_TRUE(isReported(CONNECTION_TYPE_WIFI));
    mReported.clear();
    mManager->become(CONNECTED_GLOBAL, "802-11-wireless");
    mManager->become(CONNECTED_GLOBAL, "gsm");
    EXPECT_TRUE(isReported(CONNECTION_TYPE_CELLULAR));
    EXPECT_EQ(mReported, std::vector{CONNECTION_TYPE_CELLULAR});
}

TEST_F(AConnection, DoesNotCallBackAfterItsCallbackIsUnset) {
    mManager->appear();
    mManager->become(CONNECTED_GLOBAL, "802-11-wireless");
    ASSERT_TRUE(isReported(CONNECTION_TYPE_WIFI));
    mReported.clear();
    mManager->become(CONNECTED_GLOBAL, "gsm");
    // The type has changed, so the callback is posted or has run. If it is unset now, it must not run anymore.
    while (type() != CONNECTION_TYPE_CELLULAR) {
        std::this_thread::yield();
    }
    connection_unset_type_changed_cb(connection.handle);
    connection_h other = nullptr;
    ASSERT_EQ(connection_create(&other), CONNECTION_ERROR_NONE);
    int calls = 0;
    connection_set_type_changed_cb(
        other, [](connection_type_e, void* count) { ++*static_cast<int*>(count); }, &calls);
    mManager->become(CONNECTED_GLOBAL, "802-3-ethernet");
    EXPECT_TRUE(runMainLoopUntil([&] { return calls > 0; }));
    EXPECT_TRUE(mReported.empty());
    EXPECT_EQ(connection_destroy(other), CONNECTION_ERROR_NONE);
    EXPECT_EQ(connection_destroy(other), CONNECTION_ERROR_INVALID_PARAMETER);
}

TEST_F(AConnection, DoesNotBlockWhileTheManagerHangsAndAsksItAgain) {
    mManager->appear();
    mManager->become(CONNECTED_GLOBAL, "gsm");
    ASSERT_TRUE(isReported(CONNECTION_TYPE_CELLULAR));
    mManager->freeze(true);
    for (const char* kind : {"vpn", "802-11-wireless", "bluetooth"}) {
        mManager->become(CONNECTED_GLOBAL, kind);
    }
    EXPECT_TRUE(runMainLoopUntil([] { return type() == network::kindOfDefaultRoute(); }))
        << "while the manager does not reply, the type is that of the default route";
    // Two calls stay unanswered: one after the first signal, and one for all later signals. Asking for the type makes
    // no call that could block.
    ASSERT_TRUE(runMainLoopUntil([&] { return mManager->unanswered() == 2; }));
    type();
    bus::ioThread().run([] {});
    EXPECT_EQ(mManager->unanswered(), 2);
    mManager->freeze(false);
    EXPECT_TRUE(becomes(CONNECTION_TYPE_OTHER)) << "without another signal";
}

TEST_F(AConnection, CallsTheOtherCallbacksAfterOneThrows) {
    connection_h faulty = nullptr;
    connection_h last = nullptr;
    ASSERT_EQ(connection_create(&faulty), CONNECTION_ERROR_NONE);
    ASSERT_EQ(connection_create(&last), CONNECTION_ERROR_NONE);
    int calls = 0;
    const auto throws = [](connection_type_e, void*) { throw std::runtime_error("a fault of the callback"); };
    connection_set_type_changed_cb(faulty, throws, nullptr);
    connection_set_type_changed_cb(
        last, [](connection_type_e, void* count) { ++*static_cast<int*>(count); }, &calls);
    mManager->become(CONNECTED_GLOBAL, "gsm");
    mManager->appear();
    EXPECT_TRUE(runMainLoopUntil([&] { return calls > 0; }));
    connection_destroy(faulty);
    connection_destroy(last);
}

TEST_F(AConnection, MayBeDestroyedInTheCallbackOfAnother) {
    struct Pair {
        connection_h first = nullptr;
        connection_h second = nullptr;
        int calls = 0;
    } pair;
    const auto callback = [](connection_type_e, void* data) {
        auto* both = static_cast<Pair*>(data);
        ++both->calls;
        connection_unset_type_changed_cb(both->first);
        EXPECT_EQ(connection_destroy(both->second), CONNECTION_ERROR_NONE);
    };
    for (connection_h* handle : {&pair.first, &pair.second}) {
        ASSERT_EQ(connection_create(handle), CONNECTION_ERROR_NONE);
        connection_set_type_changed_cb(*handle, callback, &pair);
    }
    connection_h last = nullptr;
    int calls = 0;
    connection_create(&last);
    connection_set_type_changed_cb(
        last, [](connection_type_e, void* count) { ++*static_cast<int*>(count); }, &calls);
    mManager->become(CONNECTED_GLOBAL, "gsm");
    mManager->appear();
    EXPECT_TRUE(runMainLoopUntil([&] { return calls > 0; }));
    EXPECT_EQ(pair.calls, 1);
    connection_destroy(pair.first);
    connection_destroy(last);
}

TEST_F(AConnection, CanBeReadOnAnyThread) {
    mManager->appear();
    mManager->become(CONNECTED_GLOBAL, "gsm");
    ASSERT_TRUE(becomes(CONNECTION_TYPE_CELLULAR));
    std::vector<std::thread> readers;
    for (int i = 0; i < 4; ++i) {
        readers.emplace_back([] {
            for (int n = 0; n < 1000; ++n) {
                EXPECT_EQ(type(), CONNECTION_TYPE_CELLULAR);
            }
        });
    }
    for (std::thread& reader : readers) {
        reader.join();
    }
}

TEST_F(AConnection, RefusesCallsWithoutAHandle) {
    connection_type_e type = CONNECTION_TYPE_OTHER;
    EXPECT_EQ(connection_create(nullptr), CONNECTION_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(connection_destroy(nullptr), CONNECTION_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(connection_get_type(nullptr, &type), CONNECTION_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(connection_get_type(connection.handle, nullptr), CONNECTION_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(connection_set_type_changed_cb(connection.handle, nullptr, nullptr), CONNECTION_ERROR_INVALID_PARAMETER);
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    ecore_app_no_system_modules();
    ecore_init();
    const int result = RUN_ALL_TESTS();
    ecore_shutdown();
    return result;
}
