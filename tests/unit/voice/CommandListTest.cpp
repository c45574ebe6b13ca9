// SPDX-License-Identifier: Apache-2.0
#include "fake/voice/FakeVoice.h"
#include "voice/VoiceFixture.h"

using CommandListTest = VoiceTest;

TEST_F(CommandListTest, TheListContainsTheFiveCommandsInOrder) {
    OrvaneDA::VoiceControl control;
    EXPECT_EQ(fake::commandTexts(), (Texts{"#org.tizen.weather", "#org.tizen.clock", "#org.tizen.launch apps",
                                           "#org.tizen.system", "#org.tizen.websearch"}));
    const Texts calls = fake::platform().textsOf({"vc_cmd_"});
    EXPECT_EQ(Texts(calls.begin(), calls.begin() + 6),
              (Texts{"vc_cmd_list_create()", "vc_cmd_create()", "vc_cmd_set_command(#org.tizen.weather)",
                     "vc_cmd_set_type(4)", "vc_cmd_set_format(5)", "vc_cmd_list_add(#org.tizen.weather)"}));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "==== Create Command List ===="));
}

TEST_F(CommandListTest, AFailureToCreateTheFourthCommandLeavesThree) {
    fake::platform().answerNext("vc_cmd_create", 0, 3);
    fake::platform().answerNext("vc_cmd_create", VC_ERROR_OUT_OF_MEMORY);
    OrvaneDA::VoiceControl control;
    EXPECT_EQ(fake::commandTexts().size(), 3u);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to cmd create"));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to create command list"));
    EXPECT_EQ(fake::platform().count("vc_cmd_destroy"), 0u) << "no fourth command exists";
}

TEST_F(CommandListTest, CreationReturnsZeroOrMinusOne) {
    fake::platform().answerNext("vc_cmd_list_create", VC_ERROR_OUT_OF_MEMORY);
    OrvaneDA::VoiceControl control;
    EXPECT_EQ(control.createCommandList(), 0);
    EXPECT_EQ(fake::commandTexts().size(), 5u);

    fake::platform().answerNext("vc_cmd_list_create", VC_ERROR_OUT_OF_MEMORY);
    OrvaneDA::VoiceControl other;
    fake::platform().answerNext("vc_cmd_create", 0, 3);
    fake::platform().answerNext("vc_cmd_create", VC_ERROR_OUT_OF_MEMORY);
    EXPECT_EQ(other.createCommandList(), -1);
    EXPECT_EQ(fake::commandTexts().size(), 3u);
}

TEST_F(CommandListTest, WithoutAListNoCommandIsCreated) {
    fake::platform().answer("vc_cmd_list_create", VC_ERROR_OUT_OF_MEMORY);
    OrvaneDA::VoiceControl control;
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to cmd list create"));
    EXPECT_EQ(fake::platform().count("vc_cmd_create"), 0u);
    EXPECT_EQ(control.createCommandList(), -1);
}

struct CommandFailure {
    const char* call;
    const char* message;
};
// The name that the test list shows.
void PrintTo(const CommandFailure& row, std::ostream* out) {
    *out << row.call;
}
class AFailedCallForACommand : public CommandListTest, public testing::WithParamInterface<CommandFailure> {};

TEST_P(AFailedCallForACommand, IsLoggedAndDestroysTheCommand) {
    fake::platform().answerNext(GetParam().call, VC_ERROR_OPERATION_FAILED);
    {
        OrvaneDA::VoiceControl control;
        EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, GetParam().message));
        EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to create command list"));
        EXPECT_EQ(fake::platform().textsOf({"vc_cmd_"}).back(), "vc_cmd_destroy()");
        EXPECT_TRUE(fake::commandTexts().empty());
    }
    EXPECT_EQ(fake::openCommands(), 0);
    EXPECT_EQ(fake::openCommandLists(), 0);
}

INSTANTIATE_TEST_SUITE_P(Each, AFailedCallForACommand,
                         testing::Values(CommandFailure{"vc_cmd_set_command", "[ERROR] Fail to set command"},
                                         CommandFailure{"vc_cmd_set_type", "[ERROR] Fail to set type"},
                                         CommandFailure{"vc_cmd_set_format", "[ERROR] Fail to set format"},
                                         CommandFailure{"vc_cmd_list_add", "[ERROR] Fail to list add"}),
                         [](const auto& row) { return std::string(row.param.call); });
