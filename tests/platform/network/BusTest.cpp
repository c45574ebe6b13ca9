// SPDX-License-Identifier: Apache-2.0
// A system bus that appears late, disappears, and returns.
#include <gtest/gtest.h>
#include <net_connection.h>

#include <fstream>
#include <memory>
#include <string>

#include "ManagerStandIn.h"
#include "network/Route.h"
#include "support/MainLoop.h"
#include "support/PrivateBus.h"
#include "support/PrivateHome.h"

namespace {

constexpr std::uint32_t CONNECTED_GLOBAL = 70;

// A system bus with a manager that reports a type no route has.
class SystemBus {
public:
    explicit SystemBus(const std::string& configuration) : mBus("--config-file=" + configuration) {
        mManager = std::make_unique<ManagerStandIn>(mBus.address());
        mManager->become(CONNECTED_GLOBAL, "bluetooth");
        mManager->appear();
    }

private:
    PrivateBus mBus;
    std::unique_ptr<ManagerStandIn> mManager;
};

TEST(ASystemBus, IsUsedWhenItAppearsAndWhenItReturns) {
    const PrivateHome home;
    const std::string address = "unix:path=" + home.folder() + "/system-bus";
    const std::string configuration = home.folder() + "/system-bus.conf";
    std::ofstream(configuration) << "<busconfig><listen>" << address
                                 << "</listen><auth>EXTERNAL</auth><policy context='default'>"
                                    "<allow send_destination='*'/><allow receive_sender='*'/>"
                                    "<allow own='*'/></policy></busconfig>";
    setenv("DBUS_SYSTEM_BUS_ADDRESS", address.c_str(), 1);
    connection_h connection = nullptr;
    ASSERT_EQ(connection_create(&connection), CONNECTION_ERROR_NONE);
    const auto becomes = [&](connection_type_e expected) {
        return runMainLoopUntil([=] {
            connection_type_e now = CONNECTION_TYPE_DISCONNECTED;
            return connection_get_type(connection, &now) == CONNECTION_ERROR_NONE && now == expected;
        });
    };
    EXPECT_TRUE(becomes(network::kindOfDefaultRoute()));
    for (int times = 0; times < 2; ++times) {
        const SystemBus bus(configuration);
        EXPECT_TRUE(becomes(CONNECTION_TYPE_OTHER)) << times;
    }
    EXPECT_TRUE(becomes(network::kindOfDefaultRoute()));
    connection_destroy(connection);
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    ecore_app_no_system_modules();
    ecore_init();
    const int result = RUN_ALL_TESTS();
    ecore_shutdown();
    return result;
}
