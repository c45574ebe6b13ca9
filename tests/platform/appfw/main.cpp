// SPDX-License-Identifier: Apache-2.0
#include <Ecore.h>
#include <gtest/gtest.h>

#include "support/OpenBus.h"
#include "support/PrivateBus.h"
#include "support/PrivateHome.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const PrivateHome home;
    const PrivateBus bus(openBus());
    ecore_app_no_system_modules();
    ecore_init();
    const int result = RUN_ALL_TESTS();
    ecore_shutdown();
    return result;
}
