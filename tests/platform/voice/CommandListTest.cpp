// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstdlib>

#include "voice_control_common.h"

namespace {

class ACommandList : public testing::Test {
protected:
    ACommandList() {
        vc_cmd_list_create(&mList);
        for (vc_cmd_h& command : mCommands) {
            vc_cmd_create(&command);
            vc_cmd_list_add(mList, command);
        }
    }
    ~ACommandList() override {
        vc_cmd_list_destroy(mList, false);
        for (vc_cmd_h command : mCommands) {
            vc_cmd_destroy(command);
        }
    }
    vc_cmd_h current() {
        vc_cmd_h command = nullptr;
        vc_cmd_list_get_current(mList, &command);
        return command;
    }

    vc_cmd_list_h mList = nullptr;
    vc_cmd_h mCommands[3] = {};
};

TEST_F(ACommandList, IteratesFromTheFirstToTheLast) {
    ASSERT_EQ(vc_cmd_list_first(mList), VC_ERROR_NONE);
    EXPECT_EQ(current(), mCommands[0]);
    ASSERT_EQ(vc_cmd_list_next(mList), VC_ERROR_NONE);
    ASSERT_EQ(vc_cmd_list_next(mList), VC_ERROR_NONE);
    EXPECT_EQ(current(), mCommands[2]);
    EXPECT_EQ(vc_cmd_list_next(mList), VC_ERROR_ITERATION_END);
    EXPECT_EQ(current(), mCommands[2]);
}

TEST_F(ACommandList, RemovesACommandWithoutDestroyingIt) {
    EXPECT_EQ(vc_cmd_list_remove(mList, mCommands[0]), VC_ERROR_NONE);
    EXPECT_EQ(vc_cmd_list_remove(mList, mCommands[0]), VC_ERROR_INVALID_PARAMETER);
    vc_cmd_list_first(mList);
    EXPECT_EQ(current(), mCommands[1]);
    EXPECT_EQ(vc_cmd_set_command(mCommands[0], "still there"), VC_ERROR_NONE);
}

TEST_F(ACommandList, KeepsItsPlaceWhenAnEarlierCommandIsRemoved) {
    vc_cmd_list_first(mList);
    vc_cmd_list_next(mList);
    vc_cmd_list_remove(mList, mCommands[0]);
    EXPECT_EQ(current(), mCommands[1]);
}

TEST(AnEmptyCommandList, ReturnsThatItIsEmpty) {
    vc_cmd_list_h list = nullptr;
    ASSERT_EQ(vc_cmd_list_create(&list), VC_ERROR_NONE);
    EXPECT_EQ(vc_cmd_list_first(list), VC_ERROR_EMPTY);
    EXPECT_EQ(vc_cmd_list_next(list), VC_ERROR_ITERATION_END);
    vc_cmd_h command = nullptr;
    EXPECT_EQ(vc_cmd_list_get_current(list, &command), VC_ERROR_EMPTY);
    EXPECT_EQ(vc_cmd_list_destroy(list, true), VC_ERROR_NONE);
}

TEST(ACommand, CreatedByTheProductHasNoProcessAndNoJson) {
    vc_cmd_h command = nullptr;
    ASSERT_EQ(vc_cmd_create(&command), VC_ERROR_NONE);
    int pid = -1;
    EXPECT_NE(vc_cmd_get_pid(command, &pid), VC_ERROR_NONE);
    EXPECT_EQ(pid, -1);
    char* json = nullptr;
    EXPECT_EQ(vc_cmd_get_nlu_json(command, &json), VC_ERROR_NONE);
    EXPECT_EQ(json, nullptr);
    EXPECT_EQ(vc_cmd_destroy(command), VC_ERROR_NONE);
}

TEST(ACommandFunction, RefusesMissingArguments) {
    EXPECT_EQ(vc_cmd_create(nullptr), VC_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(vc_cmd_destroy(nullptr), VC_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(vc_cmd_set_command(nullptr, "x"), VC_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(vc_cmd_list_create(nullptr), VC_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(vc_cmd_list_destroy(nullptr, false), VC_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(vc_cmd_list_first(nullptr), VC_ERROR_INVALID_PARAMETER);
}

}  // namespace
