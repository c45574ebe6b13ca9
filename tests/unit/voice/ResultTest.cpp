// SPDX-License-Identifier: Apache-2.0
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

#include "fake/app/FakeAppManager.h"
#include "fake/data/FakeSettings.h"
#include "fake/voice/FakeNlu.h"
#include "fake/voice/FakeVoice.h"
#include "voice/VoiceFixture.h"

using OrvaneDA::VoiceControl;

namespace {

constexpr char RESULT_FILE[] = "/tmp/Result_Orvane_json.txt";

std::string fileBytes() {
    std::ifstream file(RESULT_FILE, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

}  // namespace

class ResultTest : public VoiceTest {
protected:
    void SetUp() override {
        VoiceTest::SetUp();
        unlink(RESULT_FILE);
        rmdir(RESULT_FILE);
        control = std::make_unique<VoiceControl>();
        collectReportsOf(*control);
        mine.json = "{\"a\":1}";
        mine.pid = 100;
        mine.text = "mine";
        list.commands = {&mine};
    }
    void TearDown() override {
        control.reset();
        rmdir(RESULT_FILE);
        unlink(RESULT_FILE);
        VoiceTest::TearDown();
    }
    static fake::NluResult nlu(const char* agent, const char* actionType, const char* actionName) {
        fake::NluResult result;
        result.agent = agent;
        result.actionType = actionType;
        result.actionName = actionName;
        return result;
    }
    static fake::NluResult recipe(const char* actionName, const char* package) {
        auto result = nlu("Recipe", "Simple", actionName);
        result.recipePackage = package;
        return result;
    }
    bool result(const fake::NluResult& nluResult) {
        fake::setNluResult(nluResult);
        return fake::allResult(VC_RESULT_EVENT_RESULT_SUCCESS, list, "text");
    }
    // Two recipe applications and another application have registered the command.
    void addRecipeApps(const char* first, const char* second) {
        fake::setRunning(first, 1);
        fake::setRunning(second, 2);
        one.pid = 1;
        one.text = "one";
        one.json = mine.json;
        two.pid = 2;
        two.text = "two";
        list.commands = {&one, &two, &mine};
    }
    static size_t cancels() { return fake::platform().count("vc_mgr_cancel"); }

    std::unique_ptr<VoiceControl> control;
    vc_cmd_s mine, one, two;
    vc_cmd_list_s list;
};

TEST_F(ResultTest, ARejectionReportsAnErrorAndCancelsAndWritesNoFile) {
    fake::platform().onCall("vc_mgr_cancel", [&](const fake::Call&) { EXPECT_EQ(reports.size(), 1u); });
    EXPECT_FALSE(fake::allResult(VC_RESULT_EVENT_REJECTED, list, "x"));
    EXPECT_EQ(reports, Texts{"Error Default"});
    EXPECT_EQ(cancels(), 1u);
    EXPECT_NE(access(RESULT_FILE, F_OK), 0);
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "==== All result cb ===="));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Rejected event"));
}

TEST_F(ResultTest, ASecondResultOfARecognitionSessionIsCanceled) {
    EXPECT_TRUE(result(nlu("Weather", "Simple", "Show")));
    reports.clear();
    fake::platform().forgetCalls();
    fake::platform().answer("vc_mgr_cancel", VC_ERROR_INVALID_STATE);
    EXPECT_FALSE(result(nlu("Weather", "Simple", "Show")));
    EXPECT_TRUE(reports.empty());
    EXPECT_TRUE(fake::platform().logged(DLOG_WARN, "Invalid result cb!"));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "[ERROR] Fail to cancel"));
    EXPECT_EQ(fake::platform().texts(), Texts{"vc_mgr_cancel()"});
    control->startRecognition(OrvaneDA::VoiceStartMode::Default, "");
    EXPECT_TRUE(result(nlu("Weather", "Simple", "Show"))) << "the next session has its own result";
}

TEST_F(ResultTest, AResultAfterARejectionIsASecondResult) {
    fake::allResult(VC_RESULT_EVENT_REJECTED, list, "x");
    EXPECT_FALSE(result(nlu("Weather", "Simple", "Show")));
    EXPECT_EQ(reports, Texts{"Error Default"});
    EXPECT_TRUE(fake::platform().logged(DLOG_WARN, "Invalid result cb!"));
}

TEST_F(ResultTest, TheJsonIsWrittenAndReportedBeforeItIsParsed) {
    fake::platform().onCall("vrp_response_data_parse", [&](const fake::Call& call) {
        EXPECT_EQ(call.args.at(0), "{\"a\":1}");
        EXPECT_EQ(reports, Texts{"Ready None"});
        EXPECT_EQ(fileBytes(), std::string("{\"a\":1}\0", 8));
    });
    EXPECT_TRUE(result(nlu("Weather", "Simple", "Show")));
    EXPECT_EQ(fake::platform().count("vrp_response_data_parse"), 1u);
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Result Text - text"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Json Text - {\"a\":1}"));
    EXPECT_EQ(fake::openResponses(), 0);
}

TEST_F(ResultTest, AResultWhoseJsonCannotBeWrittenIsReportedAndStillDispatched) {
    mkdir(RESULT_FILE, 0700);
    auto response = nlu("Launch Apps", "Simple", "Go to Home Screen");
    EXPECT_TRUE(result(response));
    EXPECT_EQ(reports, Texts{"Ready NoResultJson"});
    EXPECT_EQ(sent().size(), 1u);
}

TEST_F(ResultTest, AResultWithoutTextHasNoJson) {
    fake::setNluUnparsable();
    EXPECT_FALSE(fake::allResult(VC_RESULT_EVENT_RESULT_SUCCESS, list, nullptr));
    EXPECT_EQ(reports, Texts{"Ready NoResultJson"});
    EXPECT_EQ(fake::platform().count("vc_cmd_get_nlu_json"), 0u);
}

TEST_F(ResultTest, OnlyTheFirstCommandProvidesTheJson) {
    one.json = "{\"other\":2}";
    mine.json.reset();
    list.commands = {&mine, &one};
    fake::setNluUnparsable();
    EXPECT_FALSE(fake::allResult(VC_RESULT_EVENT_RESULT_SUCCESS, list, "text"));
    EXPECT_EQ(reports, Texts{"Ready NoResultJson"});
    EXPECT_EQ(fake::platform().textsOf({"vrp_"}), Texts{"vrp_response_data_parse()"});
}

TEST_F(ResultTest, ANewResultReplacesTheWholeFile) {
    mine.json = std::string(5000, 'x');
    result(nlu("Weather", "Simple", "Show"));
    control->startRecognition(OrvaneDA::VoiceStartMode::Default, "");
    mine.json = "short";
    result(nlu("Weather", "Simple", "Show"));
    EXPECT_EQ(fileBytes(), std::string("short\0", 6));
}

TEST_F(ResultTest, UnparsableJsonIsOnlyWrittenAndReported) {
    fake::setNluUnparsable();
    EXPECT_FALSE(fake::allResult(VC_RESULT_EVENT_RESULT_SUCCESS, list, "text"));
    EXPECT_EQ(reports, Texts{"Ready None"});
    EXPECT_EQ(cancels(), 0u);
    EXPECT_TRUE(sent().empty());
}

TEST_F(ResultTest, AResultClearsTheErrorMessage) {
    fake::setVoiceErrorMessage("NLU Exception");
    fake::voiceError(VC_ERROR_TIMED_OUT);
    result(nlu("Weather", "Simple", "Show"));
    reports.clear();
    fake::serviceState(VC_SERVICE_STATE_PROCESSING, VC_SERVICE_STATE_READY);
    EXPECT_EQ(reports, Texts{"recognition Ready"});
}

TEST_F(ResultTest, RestrictedAndFollowUpCancelForAnyAgent) {
    EXPECT_FALSE(result(nlu("Launch Apps", "Simple", " Restricted ")));
    EXPECT_EQ(cancels(), 1u);
    control->startRecognition(OrvaneDA::VoiceStartMode::Default, "");
    EXPECT_FALSE(result(nlu("WebSearch", "Follow-Up", "Web Search")));
    EXPECT_EQ(cancels(), 2u);
    EXPECT_TRUE(sent().empty());
}

TEST_F(ResultTest, LaunchAppsLaunches) {
    auto response = nlu("Launch Apps", "Simple", "Open App");
    response.launchPackage = "org.music";
    EXPECT_TRUE(result(response));
    EXPECT_EQ(sent(), Texts{std::string("org.music ") + APP_CONTROL_OPERATION_MAIN + " -"});
}

TEST_F(ResultTest, BothSearchAgentsOpenAWebSearch) {
    for (const char* agent : {"Naver", "WebSearch"}) {
        control->startRecognition(OrvaneDA::VoiceStartMode::Default, "");
        auto response = nlu(agent, "Simple", "Web Search");
        response.webSearch.emplace();
        response.webSearch->url = std::string("https://") + agent;
        EXPECT_TRUE(result(response));
        EXPECT_EQ(sent().back(), std::string("- ") + APP_CONTROL_OPERATION_VIEW + " https://" + agent);
    }
}

TEST_F(ResultTest, TheServiceDoesNothingForAnyOtherAgent) {
    EXPECT_TRUE(result(nlu("Weather", "Simple", "Show")));
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(fake::platform().count("vc_mgr_set_selected_results"), 0u);
}

TEST_F(ResultTest, ARecipeAnswerCancelsAndReachesNoApplication) {
    for (const char* name : {"No Previous Step", "No Next Step", "Read Out Is Already Playing",
                             "Read Out Is Already Running", "Recipe App Already Launched", "Recipe Page Is Not Open",
                             "Read Out Is Already Paused", "Read Out Not Started"}) {
        control->startRecognition(OrvaneDA::VoiceStartMode::Default, "");
        fake::platform().forgetCalls();
        EXPECT_FALSE(result(recipe(name, "com.delicook.recipes"))) << name;
        EXPECT_EQ(cancels(), 1u);
        EXPECT_EQ(fake::platform().count("vc_mgr_set_selected_results"), 0u);
    }
}

TEST_F(ResultTest, AFollowUpThatIsARecipeAnswerCancelsTwice) {
    auto response = recipe("No Next Step", "com.delicook.recipes");
    response.actionType = "Follow-Up";
    EXPECT_FALSE(result(response));
    EXPECT_EQ(cancels(), 2u);
}

TEST_F(ResultTest, ARecipeCommandGoesToThePartnersApplicationOnly) {
    addRecipeApps("org.tizen.webdatabaseserviceapp", "org.tizen.recipesvc");
    EXPECT_FALSE(result(recipe("Next Step", "com.delicook.recipes")));
    EXPECT_EQ(fake::platform().textsOf({"vc_cmd_list_remove", "vc_mgr_set_selected"}),
              (Texts{"vc_cmd_list_remove(two)", "vc_cmd_list_remove(mine)", "vc_mgr_set_selected_results(one)"}));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "package = org.tizen.webdatabaseserviceapp"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "target (org.tizen.recipesvc)"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "remove target (org.tizen.recipesvc)"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "remove target ()"));
}

TEST_F(ResultTest, TheGeneralPartnerHasAnotherApplicationInFrance) {
    for (const char* country : {"", "US", "DE", "KR", "XX", "fr", "FR"}) {
        addRecipeApps("org.tizen.recipesvc", "org.tizen.WeblinkApps-Marmiton");
        fake::setSetting("db/setting/country_code", std::string(country));
        control->startRecognition(OrvaneDA::VoiceStartMode::Default, "");
        EXPECT_FALSE(result(recipe("Next Step", "com.generalrecipe.app")));
        EXPECT_EQ(fake::platform().textsOf({"vc_mgr_set_selected"}).back(), std::string(country) == "FR"
                                                                                ? "vc_mgr_set_selected_results(two)"
                                                                                : "vc_mgr_set_selected_results(one)")
            << country;
    }
}

TEST_F(ResultTest, TheOtherPartnersHaveTheSameApplicationInFrance) {
    fake::setSetting("db/setting/country_code", std::string("FR"));
    addRecipeApps("org.tizen.webdatabaseserviceapp", "com.other.recipes");
    result(recipe("Next Step", " com.delicook.recipes\v"));
    EXPECT_EQ(fake::platform().textsOf({"vc_mgr_set_selected"}).back(), "vc_mgr_set_selected_results(one)");
    addRecipeApps("org.tizen.webdatabaseserviceapp", "com.other.recipes");
    control->startRecognition(OrvaneDA::VoiceStartMode::Default, "");
    result(recipe("Next Step", "com.other.recipes"));
    EXPECT_EQ(fake::platform().textsOf({"vc_mgr_set_selected"}).back(), "vc_mgr_set_selected_results(two)");
}

TEST_F(ResultTest, AListWithCommandsOfTheChosenApplicationOnlyLosesNoneAndIsSelected) {
    addRecipeApps("org.tizen.recipesvc", "other");
    list.commands = {&one};
    EXPECT_FALSE(result(recipe("Next Step", "com.generalrecipe.app")));
    EXPECT_EQ(fake::platform().count("vc_cmd_list_remove"), 0u);
    EXPECT_EQ(fake::platform().textsOf({"vc_mgr_set_selected"}), Texts{"vc_mgr_set_selected_results(one)"});
}

TEST_F(ResultTest, OpeningARecipeOfTheKoreanPartnerLaunchesItAndReachesNoOtherApplication) {
    addRecipeApps("com.korearecipe.app", "org.tizen.recipesvc");
    EXPECT_FALSE(result(recipe("Open Recipe", "com.korearecipe.app")));
    EXPECT_EQ(sent(), Texts{std::string("com.korearecipe.app ") + APP_CONTROL_OPERATION_MAIN + " -"});
    EXPECT_EQ(fake::platform().textsOf({"vc_mgr_set_selected"}), Texts{"vc_mgr_set_selected_results()"});
}

TEST_F(ResultTest, OpeningARecipeOfAnotherPartnerGoesToItsApplication) {
    addRecipeApps("com.korearecipe.app", "org.tizen.recipesvc");
    EXPECT_FALSE(result(recipe("Open Recipe", "com.generalrecipe.app")));
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(fake::platform().textsOf({"vc_mgr_set_selected"}), Texts{"vc_mgr_set_selected_results(two)"});
}

TEST_F(ResultTest, AnotherCommandOfTheKoreanPartnerGoesToItsApplication) {
    addRecipeApps("com.korearecipe.app", "org.tizen.recipesvc");
    EXPECT_FALSE(result(recipe("Next Step", "com.korearecipe.app")));
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(fake::platform().textsOf({"vc_mgr_set_selected"}), Texts{"vc_mgr_set_selected_results(one)"});
}

TEST_F(ResultTest, ARestrictedRecipeIsCanceledAndStillRouted) {
    addRecipeApps("org.tizen.recipesvc", "other");
    EXPECT_FALSE(result(recipe("Restricted", "com.generalrecipe.app")));
    EXPECT_EQ(cancels(), 1u);
    EXPECT_EQ(fake::platform().textsOf({"vc_mgr_set_selected"}), Texts{"vc_mgr_set_selected_results(one)"});
}

TEST_F(ResultTest, ARecipeWithoutDataIsNotRouted) {
    EXPECT_TRUE(result(nlu("Recipe", "Simple", "Next Step")));
    control->startRecognition(OrvaneDA::VoiceStartMode::Default, "");
    auto response = nlu("Recipe", "Simple", "Next Step");
    response.actionData = false;
    EXPECT_TRUE(result(response));
    control->startRecognition(OrvaneDA::VoiceStartMode::Default, "");
    EXPECT_FALSE(result(nlu("Recipe", "Follow-Up", "Next Step")));
    EXPECT_EQ(fake::openResponses(), 0);
    EXPECT_EQ(fake::platform().count("vc_mgr_set_selected_results"), 0u);
}

TEST_F(ResultTest, ACommandOfAnUnknownProcessIsRemoved) {
    list.commands = {&mine};
    fake::platform().answer("vc_cmd_get_pid", VC_ERROR_INVALID_PARAMETER);
    EXPECT_FALSE(result(recipe("Next Step", "com.generalrecipe.app")));
    EXPECT_EQ(fake::platform().textsOf({"app_manager_get_app_id"}), Texts{"app_manager_get_app_id(-1)"});
    EXPECT_EQ(fake::platform().textsOf({"vc_mgr_set_selected"}), Texts{"vc_mgr_set_selected_results()"});
}
