// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "appliance/environment/PrivateTmp.h"

// ctest runs every test in a separate process, because an appliance changes the environment of its process.
int main(int count, char** words) {
    testing::InitGoogleTest(&count, words);
    if (!testing::GTEST_FLAG(list_tests)) {
        sim::enterPrivateTmp();
    }
    return RUN_ALL_TESTS();
}
