// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "appliance/PrivateTmp.h"

// One test a process: an appliance's environment is its process's.
int main(int count, char** words) {
    testing::InitGoogleTest(&count, words);
    if (!testing::GTEST_FLAG(list_tests)) {
        sim::enterPrivateTmp();
    }
    return RUN_ALL_TESTS();
}
