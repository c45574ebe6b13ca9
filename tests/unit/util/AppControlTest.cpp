// SPDX-License-Identifier: Apache-2.0
#include "Util/AppControl.h"

#include "fake/app/FakeAppManager.h"
#include "unit/Fixture.h"

using Util::AppControl;
using Util::AppControlData;

using AppControlTest = SendingTest;

namespace {

Texts callsOfSend() {
    return fake::platform().textsOf({"app_control_"});
}

AppControlData full() {
    AppControlData data;
    data.setPackageName("pkg").setOperation("op").setUri("uri:x");
    data.addExtraData("b", "2");
    data.addExtraData("a", "1");
    data.addExtraVectorData("v", {"x", "y"});
    return data;
}

}  // namespace

TEST_F(AppControlTest, ANewRequestHasTheDefaults) {
    AppControlData data;
    EXPECT_EQ(data.getPackageName() + data.getOperation() + data.getUri(), "");
    EXPECT_EQ(data.getReplyCallback(), nullptr);
    EXPECT_EQ(data.getReplyCallbackUserData(), nullptr);
    EXPECT_TRUE(data.getExtraDataMap().empty());
    EXPECT_TRUE(data.getExtraVectorDataMap().empty());
    EXPECT_EQ(data.getRequestedAppControl(), nullptr);
    EXPECT_EQ(data.getResultCode(), 1);
    EXPECT_FALSE(data.getTerminateRequest());
}

TEST_F(AppControlTest, ClearingResetsEveryFieldToItsDefault) {
    AppControlData data = full();
    app_control_s request;
    data.setRequestedAppControl(&request);
    data.setResultCode(APP_CONTROL_RESULT_SUCCEEDED);
    data.setTerminateRequest(true);
    data.setReplyCallback([](app_control_h, app_control_h, app_control_result_e, void*) {}, &data);
    data.clearData();
    EXPECT_EQ(data.getResultCode(), 1);
    EXPECT_EQ(data.getPackageName() + data.getOperation() + data.getUri(), "");
    EXPECT_EQ(data.getReplyCallback(), nullptr);
    EXPECT_EQ(data.getReplyCallbackUserData(), nullptr);
    EXPECT_TRUE(data.getExtraDataMap().empty());
    EXPECT_TRUE(data.getExtraVectorDataMap().empty());
    EXPECT_FALSE(data.getTerminateRequest());
    EXPECT_EQ(data.getRequestedAppControl(), nullptr);
}

TEST_F(AppControlTest, EachKindOfExtraIsReplacedAndClearedSeparately) {
    AppControlData data = full();
    data.addExtraData("a", "9");
    data.addExtraVectorData("v", {"z"});
    EXPECT_EQ(data.getExtraData("a"), "9");
    EXPECT_EQ(data.getExtraVectorData("v"), Texts{"z"});
    data.clearExtraData();
    EXPECT_TRUE(data.getExtraDataMap().empty());
    EXPECT_EQ(data.getExtraVectorDataMap().size(), 1u);
    data.clearExtraVectorData();
    EXPECT_TRUE(data.getExtraVectorDataMap().empty());
}

TEST_F(AppControlTest, ReadingAnAbsentExtraInsertsAnEmptyOne) {
    AppControlData data;
    EXPECT_EQ(data.getExtraData("k"), "");
    EXPECT_TRUE(data.getExtraVectorData("v").empty());
    EXPECT_EQ(data.getExtraDataMap().count("k"), 1u);
    EXPECT_EQ(data.getExtraVectorDataMap().count("v"), 1u);
}

TEST_F(AppControlTest, AReceivedRequestIsReadWithAllItsExtras) {
    app_control_s request{"app", "op", "uri", {{"k", "v"}}, {{"list", {"1", "2"}}}};
    app_control_h handle = &request;
    AppControlData data(handle);
    EXPECT_EQ(data.getPackageName(), "app");
    EXPECT_EQ(data.getOperation(), "op");
    EXPECT_EQ(data.getUri(), "uri");
    EXPECT_EQ(data.getExtraData("k"), "v");
    EXPECT_EQ(data.getExtraVectorData("list"), (Texts{"1", "2"}));
    EXPECT_EQ(data.getExtraDataMap().size(), 1u);
    EXPECT_EQ(data.getExtraVectorDataMap().size(), 1u);
    EXPECT_EQ(callsOfSend(), (Texts{"app_control_get_app_id()", "app_control_get_operation()", "app_control_get_uri()",
                                    "app_control_foreach_extra_data()", "app_control_is_extra_data_array(k)",
                                    "app_control_get_extra_data(k)", "app_control_is_extra_data_array(list)",
                                    "app_control_get_extra_data_array(list)"}));
}

TEST_F(AppControlTest, ANullHandleHasTheDefaultsWithoutACall) {
    app_control_h handle = nullptr;
    AppControlData data(handle);
    EXPECT_EQ(data.getResultCode(), 1);
    EXPECT_TRUE(callsOfSend().empty());
}

TEST_F(AppControlTest, AnExtraOfUnknownKindIsLoggedAndTheNextOneIsStillRead) {
    app_control_s request{{}, {}, {}, {{"a", "1"}, {"b", "2"}}, {}};
    app_control_h handle = &request;
    fake::platform().answerNext("app_control_is_extra_data_array", -1);
    AppControlData data(handle);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "app_control_is_extra_data_array() failed"));
    EXPECT_EQ(data.getExtraDataMap(), (std::map<std::string, std::string>{{"b", "2"}}));
}

TEST_F(AppControlTest, ASendFillsTheHandleInAFixedOrderAndDestroysIt) {
    AppControlData data = full();
    EXPECT_EQ(AppControl::performAppControlSync(data), 0);
    EXPECT_EQ(callsOfSend(),
              (Texts{"app_control_create()", "app_control_set_app_id(pkg)", "app_control_set_operation(op)",
                     "app_control_set_uri(uri:x)", "app_control_add_extra_data(a, 1)",
                     "app_control_add_extra_data(b, 2)", "app_control_add_extra_data_array(v, 2)",
                     "app_control_send_launch_request(pkg op uri:x a=1 b=2 v=[x,y,])", "app_control_destroy()"}));
    EXPECT_EQ(fake::openAppControls(), 0u);
}

TEST_F(AppControlTest, ARequestWithOnlyAPackageNameLaunchesItWithNoOperation) {
    AppControlData data;
    data.setPackageName("only");
    AppControl::performAppControlSync(data);
    EXPECT_EQ(fake::launchTexts(), Texts{"only - -"});
}

TEST_F(AppControlTest, ExtrasWithAnEmptyKeyOrValueAreNotSent) {
    AppControlData data;
    data.setPackageName("p");
    data.addExtraData("empty", "");
    data.addExtraData("", "value");
    data.addExtraVectorData("", {"x"});
    data.addExtraVectorData("none", {});
    EXPECT_EQ(AppControl::performAppControlSync(data), 0);
    EXPECT_EQ(fake::launchTexts(), Texts{"p - - none=[]"});
}

struct FailingStep {
    const char* call;
    const char* message;
    bool ofAReply = false;
};
// The name in the list of tests.
void PrintTo(const FailingStep& row, std::ostream* out) {
    *out << row.call;
}

class AFailingStepOfASend : public AppControlTest, public testing::WithParamInterface<FailingStep> {};

TEST_P(AFailingStepOfASend, IsLoggedReturnsItsCodeAndAbandonsTheHandle) {
    AppControlData data = full();
    app_control_s request;
    if (GetParam().ofAReply) {
        data.setRequestedAppControl(&request);
    }
    fake::platform().answerNext(GetParam().call, -77);
    EXPECT_EQ(AppControl::performAppControlSync(data), -77);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, GetParam().message));
    EXPECT_EQ(fake::platform().calls().back().name, GetParam().call);
    ASSERT_EQ(fake::platform().logs().size(), 1u);
    EXPECT_NE(fake::platform().logs()[0].text.find(" AppControl.cpp: performAppControlSync("), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(
    Each, AFailingStepOfASend,
    testing::Values(FailingStep{"app_control_create", "Failed to create app_control handle"},
                    FailingStep{"app_control_set_app_id", "Failed to set app id"},
                    FailingStep{"app_control_set_operation", "Failed to set operation"},
                    FailingStep{"app_control_set_uri", "Failed to set uri"},
                    FailingStep{"app_control_add_extra_data", "Failed to add extra data"},
                    FailingStep{"app_control_add_extra_data_array", "Failed to add extra vector data"},
                    FailingStep{"app_control_send_launch_request", "Failed to launch request"},
                    FailingStep{"app_control_reply_to_launch_request", "Failed to launch request", true},
                    FailingStep{"app_control_destroy", "Failed to destroy app_control handle"}),
    [](const auto& row) { return std::string(row.param.call); });

TEST_F(AppControlTest, AnAsynchronousSendRunsOnTheWorkerWithACopyOfTheRequest) {
    AppControlData data;
    data.setPackageName("first");
    AppControl::performAppControl(data);
    data.setPackageName("second");
    AppControl::performAppControl(data);
    ASSERT_TRUE(fake::waitForLaunches(2));
    EXPECT_EQ(fake::launchTexts(), (Texts{"first - -", "second - -"}));
    EXPECT_NE(fake::platform().calls("app_control_send_launch_request").at(0).thread, gettid());
}

TEST_F(AppControlTest, TheReplyCallbackIsPassedToThePlatform) {
    AppControlData data;
    int datum = 0;
    auto callback = [](app_control_h, app_control_h, app_control_result_e, void*) {};
    data.setPackageName("p");
    data.setReplyCallback(callback, &datum);
    AppControl::performAppControlSync(data);
    EXPECT_EQ(fake::launches().at(0).callback, static_cast<app_control_reply_cb>(callback));
    EXPECT_EQ(fake::launches().at(0).userData, &datum);
}

TEST_F(AppControlTest, TheRequestMayBeChangedWhileEarlierCopiesAreSent) {
    AppControlData data;
    data.setPackageName("ui");
    for (const char* state : {"Recording", "Processing", "Ready"}) {
        data.clearExtraData();
        data.addExtraData("state", state);
        AppControl::performAppControl(data);
    }
    EXPECT_EQ(sent(), (Texts{"ui - - state=Recording", "ui - - state=Processing", "ui - - state=Ready"}));
}

TEST_F(AppControlTest, AFailedSendDoesNotStopTheNext) {
    AppControlData data;
    data.setPackageName("ui");
    fake::platform().answerNext("app_control_send_launch_request", -5);
    AppControl::performAppControl(data);
    data.setPackageName("next");
    AppControl::performAppControl(data);
    EXPECT_EQ(sent(), Texts{"next - -"});
}

TEST_F(AppControlTest, AReplyIsSentToTheRequestWithItsResultCode) {
    app_control_s request;
    AppControlData data;
    data.setRequestedAppControl(&request);
    data.setResultCode(APP_CONTROL_RESULT_SUCCEEDED);
    data.addExtraData("k", "v");
    EXPECT_EQ(AppControl::performAppControlSync(data), 0);
    EXPECT_EQ(fake::platform().textsOf({"app_control_reply"}),
              Texts{"app_control_reply_to_launch_request(- - - k=v, 0)"});
    EXPECT_TRUE(fake::launches().empty());
}

TEST_F(AppControlTest, AnAsynchronousReplyIsRefused) {
    app_control_s request;
    AppControlData data;
    data.setRequestedAppControl(&request);
    EXPECT_EQ(AppControl::performAppControl(data), -1);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Reply App Control must be called by sync"));
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(fake::platform().count("app_control_reply_to_launch_request"), 0u);
}

class ClosingAnApplication : public AppControlTest {
protected:
    int close(const std::string& package = "app") {
        AppControlData data;
        data.setPackageName(package);
        data.setTerminateRequest(true);
        return AppControl::performAppControlSync(data);
    }
    static Texts calls() { return fake::platform().textsOf({"app_"}); }
};

TEST_F(ClosingAnApplication, WithoutAPackageNameFails) {
    EXPECT_EQ(close(""), -1);
    EXPECT_TRUE(calls().empty());
}

TEST_F(ClosingAnApplication, ThatDoesNotRunSucceedsAndLogsNothing) {
    EXPECT_EQ(close(), 0);
    EXPECT_EQ(calls(), Texts{"app_manager_is_running(app)"});
    EXPECT_TRUE(fake::platform().logs().empty());
}

TEST_F(ClosingAnApplication, ReturnsTheErrorIfThePlatformCannotSayWhetherItRuns) {
    fake::platform().answer("app_manager_is_running", -9);
    EXPECT_EQ(close(), -9);
}

TEST_F(ClosingAnApplication, ThatRunsTerminatesItsContextAndDestroysIt) {
    fake::setRunning("app");
    EXPECT_EQ(close(), 0);
    EXPECT_EQ(calls(), (Texts{"app_manager_is_running(app)", "app_manager_get_app_context(app)",
                              "app_manager_terminate_app()", "app_context_destroy()"}));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Terminate target app"));
}

TEST_F(ClosingAnApplication, WithoutAContextFails) {
    fake::setRunning("app");
    fake::platform().answer("app_manager_get_app_context", -1);
    EXPECT_EQ(close(), -1);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Failed to get app_context handle"));
    EXPECT_EQ(fake::platform().count("app_context_destroy"), 0u);
}

TEST_F(ClosingAnApplication, ThatRefusesFailsAndStillDestroysTheContext) {
    fake::setRunning("app");
    fake::platform().answer("app_manager_terminate_app", -3);
    EXPECT_EQ(close(), -1);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Failed to terminate bg app"));
    EXPECT_EQ(calls().back(), "app_context_destroy()");
}
