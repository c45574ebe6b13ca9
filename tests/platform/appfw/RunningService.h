// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include "Program.h"

constexpr char SERVICE_ID[] = "org.orvane.da-service";

class RunningService : public Program {
public:
    RunningService() : Program({APPFW_SERVICE}) { EXPECT_EQ(line(), "create"); }
};
