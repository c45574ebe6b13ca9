#include "fake/FakeServiceApp.h"
#include "service/ServiceFixture.h"

int orvane_main(int argc, char** argv);

namespace {

Texts without(Texts texts, const std::string& part) {
    texts.erase(std::remove_if(texts.begin(), texts.end(),
                               [&](const std::string& text) { return text.find(part) != std::string::npos; }),
                texts.end());
    return texts;
}

size_t indexOf(const Texts& texts, const std::string& start) {
    for (size_t i = 0; i < texts.size(); ++i) {
        if (texts[i].find(start) == 0) {
            return i;
        }
    }
    ADD_FAILURE() << start << " is missing";
    return texts.size();
}

}  // namespace

class LifecycleTest : public ServiceTest {
protected:
    static void wakeUp() {
        fake::onEngineThread([](nuance::IWakeupListener& listener) { listener.OnWakeup("hey quorbit", 77); });
    }
    static constexpr char WAKE_UP[] =
        "org.tizen.orvane-da http://orvane.example/appcontrol/operation/trigger_shot/voice -";
};

TEST_F(LifecycleTest, TheEntryPointHandsTheLoopThreeCallbacksAndReturnsItsAnswer) {
    fake::platform().answer("service_app_main", 42);
    EXPECT_EQ(orvane_main(1, nullptr), 42);
    Texts lines;
    for (const auto& line : fake::platform().logs()) {
        if (line.priority == DLOG_INFO) {
            lines.push_back(line.message);
        }
    }
    EXPECT_EQ(lines, (Texts{"main", "Orvane DA Version: 0.0.1-7.1", "main----2"}));
    EXPECT_EQ(fake::platform().texts(), Texts{"service_app_main(1, null)"});

    ASSERT_NE(fake::lifecycle(), nullptr);
    EXPECT_TRUE(fake::lifecycle()->create(nullptr));
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "_create"));
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "Service::onCreate"));
    app_control_s request;
    fake::lifecycle()->app_control(&request, nullptr);
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "app_control"));
    fake::lifecycle()->terminate(nullptr);
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "_terminate"));
    EXPECT_TRUE(fake::platform().logged(DLOG_INFO, "Service::onTerminate"));
}

TEST_F(LifecycleTest, ModulesAreBuiltInTheirOrder) {
    service = std::make_unique<OrvaneDA::Service>();
    EXPECT_TRUE(service->onCreate());
    const Texts texts = fake::platform().texts();
    const Texts order = {"vc_setting_initialize",
                         "vc_mgr_prepare",
                         "ks_server_create",
                         "vrd_manager_create(Profile)",
                         "event_add_event_handler(event.org.orvane.account.notification)",
                         "sound_manager_create_stream_information",
                         "sse_prepare",
                         "IWakeupCtx::Create",
                         "vconf_set_int(db/orvane/setting/lang, 1)",
                         "IWakeupCtx::StartListening",
                         "vconf_notify_key_changed(db/menu_widget/language)",
                         "vconf_notify_key_changed(db/orvane/setting/lang)",
                         "vconf_notify_key_changed(db/mic_key/status)",
                         "connection_set_type_changed_cb",
                         "vconf_notify_key_changed(db/orvane/setting/voice_wakeup_word)",
                         "app_manager_is_running(org.tizen.orvane-da)"};
    for (size_t i = 1; i < order.size(); ++i) {
        EXPECT_LT(indexOf(texts, order[i - 1]), indexOf(texts, order[i])) << order[i];
    }
    EXPECT_TRUE(fake::platform().waitFor("sse_read"));
}

TEST_F(LifecycleTest, TerminationDestroysTheModulesInTheirOrder) {
    create();
    service->onTerminate();
    service.reset();
    const Texts texts = without(fake::platform().texts(), "sse_read");
    const Texts order = {"event_remove_event_handler",
                         "ks_server_destroy",
                         "vrd_manager_destroy",
                         "vc_mgr_unset_command_list",
                         "vc_setting_deinitialize",
                         "sse_unprepare",
                         "sound_manager_destroy_stream_information",
                         "IWakeupCtx::CancelListening",
                         "IWakeupCtx::Destroy",
                         "vconf_ignore_key_changed"};
    for (size_t i = 1; i < order.size(); ++i) {
        EXPECT_LT(indexOf(texts, order[i - 1]), indexOf(texts, order[i])) << order[i];
    }
    EXPECT_EQ(fake::platform().count("ecore_timer_del"), 0u) << "no timer ran";
    EXPECT_EQ(Util::Singleton<Util::SystemConfig>::mInstance, nullptr);
}

TEST_F(LifecycleTest, TerminationWhileRecordingDeletesTheTimers) {
    create();
    fake::serviceState(VC_SERVICE_STATE_READY, VC_SERVICE_STATE_RECORDING);
    service->onTerminate();
    service.reset();
    EXPECT_EQ(fake::mainLoop().timers(), 0u);
}

TEST_F(LifecycleTest, TerminationWithoutModulesSkipsThem) {
    service = std::make_unique<OrvaneDA::Service>();
    service->onTerminate();
    service.reset();
    EXPECT_TRUE(fake::platform().texts().empty());
}

TEST_F(LifecycleTest, AWakeUpWordLaunchesTheUiAndListensAgain) {
    create();
    wakeUp();
    ASSERT_TRUE(fake::platform().waitFor("IWakeupCtx::StartListening"));
    const Texts calls = fake::platform().textsOf({"sse_trigger", "vconf_set", "display", "IWakeupCtx::StartListening"});
    ASSERT_EQ(calls.size(), 5u);
    EXPECT_EQ(calls[0], "sse_trigger_wakeup_word_recording(77)");
    EXPECT_EQ(calls[1], "vconf_set_int(db/setting/lcd_backlight_normal, 30)");
    EXPECT_EQ(calls[2].find("vconf_set_int(memory/pm/event-external"), 0u);
    EXPECT_EQ(calls[3], "display_change_state(1)");
    EXPECT_EQ(sent(), Texts{WAKE_UP});
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Trigger Shot!"));
}

TEST_F(LifecycleTest, AWakeUpWordWithTheMicrophoneOffLaunchesNothingButListensAgain) {
    create();
    fake::setSetting("db/mic_key/status", 0);
    wakeUp();
    ASSERT_TRUE(fake::platform().waitFor("IWakeupCtx::StartListening"));
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(fake::platform().count("sse_trigger_wakeup_word_recording"), 1u);
}

TEST_F(LifecycleTest, AWakeUpWordInTheBoxLaunchesNothingButListensAgain) {
    create();
    fake::setSetting("db/demo_mode", 1);
    wakeUp();
    ASSERT_TRUE(fake::platform().waitFor("IWakeupCtx::StartListening"));
    EXPECT_TRUE(sent().empty());
}

TEST_F(LifecycleTest, AWakeUpWordRightBeforeTerminationIsSafe) {
    for (int i = 0; i < 5; ++i) {
        create();
        wakeUp();
        service->onTerminate();
        service.reset();
        SetUp();
    }
}
