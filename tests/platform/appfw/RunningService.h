// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include "support/Program.h"

constexpr char SERVICE_ID[] = "org.orvane.da-service";

class RunningService : public Program {
public:
    explicit RunningService(const std::vector<std::string>& words = {APPFW_SERVICE}) : Program(words) {
        EXPECT_EQ(line(), "create");
    }
};
