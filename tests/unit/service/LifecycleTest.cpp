// SPDX-License-Identifier: Apache-2.0
#include "fake/app/FakeServiceApp.h"
#include "service/ServiceFixture.h"

int orvane_main(int argc, char** argv);

namespace {

// Names of the functions that logged, in order.
Texts loggers() {
    Texts names;
    for (const auto& line : fake::platform().logs()) {
        const size_t start = line.text.find(".cpp: ") + 6;
        names.push_back(line.text.substr(start, line.text.find('(', start) - start));
    }
    return names;
}

size_t indexOf(const Texts& texts, const std::string& text) {
    const auto found = std::find(texts.begin(), texts.end(), text);
    EXPECT_NE(found, texts.end()) << text << " is missing";
    return found - texts.begin();
}

}  // namespace

class LifecycleTest : public ServiceTest {
protected:
    static void wakeUp() {
        fake::onEngineThread([](nuance::IWakeupListener& listener) { listener.OnWakeup("hey quorbit", 77); });
    }
    // Waits until the worker has handled every detection so far.
    static void drainDetections() {
        auto done = std::make_shared<std::atomic<bool>>(false);
        Util::Singleton<Util::AsyncThread>::getInstance()->asyncCall([done] { return *done = true, false; });
        ASSERT_TRUE(fake::platform().waitUntil([&] { return done->load(); }));
    }
    // Two ways to destroy the trigger.
    static void changesWakeWord(OrvaneDA::Service&) { fake::changeSetting("db/orvane/setting/voice_wakeup_word", 1); }
    static void terminates(OrvaneDA::Service& service) { service.onTerminate(); }

    static constexpr char WAKE_UP[] =
        "org.tizen.orvane-da http://orvane.example/appcontrol/operation/trigger_shot/voice -";
};

TEST_F(LifecycleTest, TheEntryPointPassesThreeCallbacksAndReturnsTheLoopsResult) {
    fake::platform().answer("service_app_main", 42);
    EXPECT_EQ(orvane_main(1, nullptr), 42);
    Texts lines;
    for (const auto& line : fake::platform().logs()) {
        lines.push_back(line.message);
    }
    // The constructor of the service's port logs an empty line.
    EXPECT_EQ(lines, (Texts{"main", "Orvane DA Version: 0.0.1-7.1", "", "main----2"}));
    for (const char* line : {"main", "Orvane DA Version: 0.0.1-7.1", "main----2"}) {
        EXPECT_TRUE(fake::platform().logged(DLOG_INFO, line));
    }
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
    EXPECT_EQ(loggers().back(), "~MessagePort") << "the service destroys its port";
}

TEST_F(LifecycleTest, ModulesAreCreatedInOrder) {
    fake::setSupportedLanguages({"de_DE"});
    fake::setSetting("db/menu_widget/language", std::string("de_DE.UTF-8"));
    service = std::make_unique<OrvaneDA::Service>();
    EXPECT_TRUE(service->onCreate());
    EXPECT_EQ(
        fake::platform().textsOf({"vc_mgr_prepare", "ks_server", "vrd_manager", "event_",
                                  "sound_manager_create_stream_information", "sse_prepare", "IWakeupCtx::Create",
                                  "vconf_set", "vc_setting_set_language", "IWakeupCtx::StartListening", "vconf_notify",
                                  "connection_set", "app_manager"}),
        (Texts{"vc_setting_set_language(en_US)", "vc_mgr_prepare()", "ks_server_create()",
               "vrd_manager_create(Profile)", "event_add_event_handler(event.org.orvane.account.notification)",
               "sound_manager_create_stream_information(6)", "sse_prepare()", "IWakeupCtx::Create()",
               "vconf_set_int(db/orvane/setting/lang, 4)", "vc_setting_set_language(de_DE)",
               "IWakeupCtx::StartListening()", "vconf_notify_key_changed(db/menu_widget/language)",
               "vconf_notify_key_changed(db/orvane/setting/lang)", "vconf_notify_key_changed(db/mic_key/status)",
               "connection_set_type_changed_cb()", "vconf_notify_key_changed(db/orvane/setting/voice_wakeup_word)",
               "app_manager_is_running(org.tizen.orvane-da)"}));
    EXPECT_TRUE(fake::platform().waitFor("sse_read"));
}

TEST_F(LifecycleTest, TheRecorderStartsBeforeTheTrigger) {
    service = std::make_unique<OrvaneDA::Service>();
    service->onCreate();
    const Texts lines = loggers();
    EXPECT_LT(indexOf(lines, "initModule"), indexOf(lines, "initTrigger"));
    EXPECT_LT(indexOf(lines, "initTrigger"), indexOf(lines, "startRecord"));
    EXPECT_LT(indexOf(lines, "startRecord"), indexOf(lines, "__startListening"));
    const auto entry = fake::platform().logs().at(indexOf(lines, "initTrigger"));
    EXPECT_EQ(entry.priority, DLOG_DEBUG);
    EXPECT_EQ(entry.message, "");
}

TEST_F(LifecycleTest, TerminationDestroysTheModulesInOrder) {
    create();
    Util::Singleton<Util::SoundStreamWatcher>::getInstance();
    fake::platform().forgetCalls();
    service->onTerminate();
    EXPECT_EQ(fake::platform().textsOf({"event_", "ks_server", "vrd_manager", "vc_mgr_deinitialize", "vc_setting_de",
                                        "sse_unprepare", "sound_manager_destroy", "IWakeupCtx", "vconf_ignore",
                                        "sound_manager_remove", "ecore"}),
              (Texts{"event_remove_event_handler()", "ks_server_destroy()", "vrd_manager_destroy()",
                     "vc_mgr_deinitialize()", "vc_setting_deinitialize()", "sse_unprepare()",
                     "sound_manager_destroy_stream_information()", "IWakeupCtx::CancelListening()",
                     "IWakeupCtx::Destroy()", "vconf_ignore_key_changed(db/menu_widget/language)",
                     "vconf_ignore_key_changed(db/mic_key/status)", "vconf_ignore_key_changed(db/orvane/setting/lang)",
                     "vconf_ignore_key_changed(db/orvane/setting/voice_wakeup_word)",
                     "sound_manager_remove_focus_state_watch_cb(5)", "vrd_manager_destroy()"}));
    EXPECT_EQ(Util::Singleton<Util::SystemConfig>::mInstance, nullptr);
    EXPECT_EQ(Util::Singleton<Util::SoundStreamWatcher>::mInstance, nullptr);
}

TEST_F(LifecycleTest, TerminationWithoutAVolumeTimerDeletesNone) {
    create();
    service->onTerminate();
    EXPECT_EQ(fake::platform().count("ecore_timer_del"), 0u);
}

TEST_F(LifecycleTest, TerminationWhileRecordingDeletesTheVolumeTimerBeforeTheModules) {
    create();
    fake::serviceState(VC_SERVICE_STATE_READY, VC_SERVICE_STATE_RECORDING);
    service->onTerminate();
    EXPECT_EQ(
        fake::platform().textsOf({"ecore_timer_del", "event_", "vc_setting_deinitialize"}),
        (Texts{"ecore_timer_del()", "event_remove_event_handler()", "vc_setting_deinitialize()", "ecore_timer_del()"}));
    EXPECT_EQ(fake::mainLoop().timers(), 0u);
}

TEST_F(LifecycleTest, TerminationWithoutModulesSkipsThem) {
    service = std::make_unique<OrvaneDA::Service>();
    service->onTerminate();
    service.reset();
    EXPECT_TRUE(fake::platform().texts().empty());
}

TEST_F(LifecycleTest, AWakeWordLaunchesTheUiAndRestartsTheTrigger) {
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

TEST_F(LifecycleTest, AWakeWordDetectionIsHandledNeitherOnTheMainLoopNorOnTheEnginesThread) {
    create();
    fake::platform().onCall("sse_trigger_wakeup_word_recording", [](const fake::Call& call) {
        EXPECT_FALSE(fake::mainLoop().onMainThread());
        for (const auto& line : fake::platform().logs()) {
            if (line.message.find("Wakeup! wuw") == 0) {
                EXPECT_NE(line.thread, call.thread);
            }
        }
        EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Trigger Shot!"));
    });
    wakeUp();
    ASSERT_TRUE(fake::platform().waitFor("IWakeupCtx::StartListening"));
    EXPECT_EQ(fake::platform().countLogged("Wakeup! wuw: hey quorbit,  confidential level = 77"), 1u);
    EXPECT_EQ(fake::platform().count("sse_trigger_wakeup_word_recording"), 1u);
}

TEST_F(LifecycleTest, WithTheMicrophoneOffAWakeWordOnlyRestartsTheTrigger) {
    create();
    fake::setSetting("db/mic_key/status", 0);
    wakeUp();
    ASSERT_TRUE(fake::platform().waitFor("IWakeupCtx::StartListening"));
    EXPECT_TRUE(sent().empty());
    EXPECT_TRUE(fake::platform().textsOf({"vconf_set", "display"}).empty()) << "the display is unchanged";
    EXPECT_EQ(fake::platform().count("sse_trigger_wakeup_word_recording"), 1u);
}

TEST_F(LifecycleTest, BeforeTheFirstSetupAWakeWordOnlyRestartsTheTrigger) {
    create();
    fake::setSetting("db/demo_mode", 1);
    wakeUp();
    ASSERT_TRUE(fake::platform().waitFor("IWakeupCtx::StartListening"));
    EXPECT_TRUE(sent().empty());
    EXPECT_TRUE(fake::platform().textsOf({"vconf_set", "display"}).empty()) << "the display is unchanged";
}

TEST_F(LifecycleTest, DestroyingAModuleWaitsForADetectionThatUsesIt) {
    for (const auto& end : {changesWakeWord, terminates}) {
        create();
        std::atomic<bool> busy{false};
        bool gone = true;
        const auto modulesGone = [] {
            return fake::platform().count("sse_unprepare") + fake::platform().count("IWakeupCtx::Destroy") != 0;
        };
        fake::platform().onCall("sse_trigger_wakeup_word_recording", [&](const fake::Call&) {
            busy = true;
            gone = fake::platform().waitUntil(modulesGone, std::chrono::milliseconds(100));
        });
        wakeUp();
        ASSERT_TRUE(fake::platform().waitUntil([&] { return busy.load(); }));
        end(*service);
        fake::platform().onCall("sse_trigger_wakeup_word_recording", nullptr);
        EXPECT_FALSE(gone);
        EXPECT_TRUE(modulesGone());
        restart();
    }
}

TEST_F(LifecycleTest, ADetectionThatWaitsForTheDisplayDelaysNeitherANewTriggerNorTermination) {
    for (const auto& end : {changesWakeWord, terminates}) {
        create();
        std::atomic<bool> waiting{false};
        std::atomic<bool> ended{false};
        bool endedFirst = false;
        fake::platform().onCall("display_change_state", [&](const fake::Call&) {
            waiting = true;
            endedFirst = fake::platform().waitUntil([&] { return ended.load(); });
        });
        wakeUp();
        ASSERT_TRUE(fake::platform().waitUntil([&] { return waiting.load(); }));
        end(*service);
        ended = true;
        drainDetections();
        fake::platform().onCall("display_change_state", nullptr);
        EXPECT_TRUE(endedFirst);
        restart();
    }
}

TEST_F(LifecycleTest, ADetectionGoesOnWithTheNewTriggerAfterTheOldOneIsGone) {
    create();
    fake::platform().onCall("display_change_state", [&](const fake::Call&) {
        EXPECT_TRUE(fake::platform().waitFor("IWakeupCtx::StartListening"));
    });
    wakeUp();
    ASSERT_TRUE(fake::platform().waitFor("display_change_state"));
    changesWakeWord(*service);
    drainDetections();
    fake::platform().onCall("display_change_state", nullptr);
    EXPECT_EQ(sent(), Texts{WAKE_UP});
    const Texts names = loggers();
    EXPECT_EQ(std::count(names.begin(), names.end(), "__startListening"), 2) << "once by the service";
}

TEST_F(LifecycleTest, ADetectionThatOutlastsTheServiceOpensNoUi) {
    create();
    std::atomic<bool> ended{false};
    fake::platform().onCall("display_change_state",
                            [&](const fake::Call&) { fake::platform().waitUntil([&] { return ended.load(); }); });
    wakeUp();
    ASSERT_TRUE(fake::platform().waitFor("display_change_state"));
    service->onTerminate();
    service.reset();
    ended = true;
    drainDetections();
    fake::platform().onCall("display_change_state", nullptr);
    EXPECT_TRUE(sent().empty());
    EXPECT_EQ(fake::platform().count("IWakeupCtx::StartListening"), 0u);
}

TEST_F(LifecycleTest, AWakeWordRightBeforeTerminationIsSafe) {
    for (int i = 0; i < 5; ++i) {
        create();
        wakeUp();
        service->onTerminate();
        service.reset();
        SetUp();
    }
}
