// SPDX-License-Identifier: Apache-2.0
#include "Controller/Trigger/vocon_4_10/WuWTrigger.h"

#include <sys/syscall.h>
#include <tzplatform_config.h>
#include <unistd.h>

#include <atomic>
#include <future>

#include "Controller/SRecordListener.h"
#include "fake/audio/FakeWakeupEngine.h"
#include "fake/data/FakeSettings.h"
#include "unit/Fixture.h"

using OrvaneDA::Trigger;
using OrvaneDA::WuWTrigger;
using Error = nuance::IWakeupListener::Error;
using Warning = nuance::IWakeupListener::Warning;

namespace {

struct OpenTrigger : WuWTrigger {
    using WuWTrigger::mEnabled;
};

struct ShotOfItsOwn : WuWTrigger {
    void _shot(int level) override { shot = level; }
    std::atomic<int> shot{0};
};

}  // namespace

class WuWTriggerTest : public PlatformTest {
protected:
    void countShotsOf(WuWTrigger& trigger) {
        trigger.setCallback([this](int value) {
            thread = static_cast<pid_t>(syscall(SYS_gettid));
            level = value;
            ++shots;
        });
    }
    static void detect(int level) {
        fake::onEngineThread([=](nuance::IWakeupListener& listener) { listener.OnWakeup("hey quorbit", level); });
    }
    // Waits until the worker has run every job queued so far.
    static void drainWorker() {
        auto done = std::make_shared<std::atomic<bool>>(false);
        Util::Singleton<Util::AsyncThread>::getInstance()->asyncCall([done] { return *done = true, false; });
        ASSERT_TRUE(fake::platform().waitUntil([&] { return done->load(); }));
    }
    static pid_t workerThread() {
        auto worker = std::make_shared<std::atomic<pid_t>>(0);
        Util::Singleton<Util::AsyncThread>::getInstance()->asyncCall(
            [worker] { return *worker = static_cast<pid_t>(syscall(SYS_gettid)), false; });
        EXPECT_TRUE(fake::platform().waitUntil([&] { return *worker != 0; }));
        return *worker;
    }
    static Texts engineCalls() { return fake::platform().textsOf({"IWakeupCtx"}); }

    std::atomic<int> shots{0};
    std::atomic<int> level{0};
    std::atomic<pid_t> thread{0};
};

TEST_F(WuWTriggerTest, ConstructionInitializesTheEngineForTheLanguageAndTheWakeWord) {
    fake::setSetting("db/orvane/setting/lang", 4);
    fake::setSetting("db/orvane/setting/voice_wakeup_word", 1);
    WuWTrigger trigger;
    const std::string data = std::to_string(TZPLATFORM_DATA_ROOT);
    EXPECT_EQ(
        fake::platform().story(),
        (Texts{"log: ", "IWakeupCtx::Create()", "IWakeupCtx::AttachListener()", "vconf_get_int(db/orvane/setting/lang)",
               "vconf_get_int(db/orvane/setting/voice_wakeup_word)", "tzplatform_mkpath(" + data + ", voice/data/)",
               "IWakeupCtx::Initialize(/data/voice/data/GED/wakeup_vexal/, vocon_config.json)",
               "IWakeupCtx::AttachAudioIn()"}));
    EXPECT_NE(trigger.getSRecordListener(), nullptr);
    EXPECT_FALSE(fake::engineListens());
}

TEST_F(WuWTriggerTest, AnEngineThatFailsToInitializeLeavesTheTriggerWithoutAFeed) {
    fake::setEngineUsable(false);
    WuWTrigger trigger;
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Initialize error"));
    EXPECT_EQ(trigger.getSRecordListener(), nullptr);
    trigger.start();
    detect(50);
    trigger.stop();
    EXPECT_EQ(fake::platform().count("IWakeupCtx::AttachAudioIn"), 0u);
}

TEST_F(WuWTriggerTest, EachLanguageHasItsDirectoryAndAnUnlistedOneUsesTheAmericanDirectory) {
    const char* folders[] = {"KOK", "ENU", "ENG", "ENU", "GED", "ITI", "FRF", "ENU", "ENU", "ENU"};
    for (int value = 0; value < 10; ++value) {
        EXPECT_EQ(WuWTrigger::getConfigPath(static_cast<Util::OrvaneLang>(value), Util::OrvaneWUW::QUORBIT),
                  std::string("/data/voice/data/") + folders[value] + "/wakeup_quorbit/");
    }
}

TEST_F(WuWTriggerTest, AnUnlistedWakeWordHasAnEmptyKey) {
    EXPECT_EQ(WuWTrigger::getConfigPath(Util::OrvaneLang::FR_FR, static_cast<Util::OrvaneWUW>(2)),
              "/data/voice/data/FRF//");
}

TEST_F(WuWTriggerTest, AStartStartsTheEngineAndThenOpensTheFeed) {
    OpenTrigger trigger;
    bool openBefore = true;
    fake::platform().onCall("IWakeupCtx::StartListening", [&](const fake::Call&) {
        openBefore = trigger.getSRecordListener()->isEnabled();
        EXPECT_EQ(trigger.mEnabled, 1);
    });
    trigger.start();
    EXPECT_FALSE(openBefore);
    EXPECT_TRUE(fake::engineListens());
    EXPECT_TRUE(trigger.getSRecordListener()->isEnabled());
    trigger.start();
    EXPECT_EQ(fake::platform().count("IWakeupCtx::StartListening"), 1u);
}

TEST_F(WuWTriggerTest, AStopClosesTheFeedAndThenCancelsListening) {
    OpenTrigger trigger;
    trigger.start();
    bool openBefore = true;
    fake::platform().onCall("IWakeupCtx::CancelListening", [&](const fake::Call&) {
        openBefore = trigger.getSRecordListener()->isEnabled();
        EXPECT_EQ(trigger.mEnabled, 0);
    });
    trigger.stop();
    EXPECT_FALSE(openBefore);
    EXPECT_FALSE(fake::engineListens());
    trigger.stop();
    EXPECT_EQ(fake::platform().count("IWakeupCtx::CancelListening"), 1u);
}

TEST_F(WuWTriggerTest, AStopDuringAStartOnAnotherThreadLeavesTheFeedClosed) {
    WuWTrigger trigger;
    std::future<void> stop;
    fake::platform().onCall("IWakeupCtx::StartListening", [&](const fake::Call&) {
        stop = std::async(std::launch::async, [&] { trigger.stop(); });
        stop.wait_for(std::chrono::milliseconds(100));  // long enough for a stop that does not wait for the start
    });
    trigger.start();
    stop.wait();
    EXPECT_FALSE(fake::engineListens());
    EXPECT_FALSE(trigger.getSRecordListener()->isEnabled());
    fake::platform().onCall("IWakeupCtx::StartListening", nullptr);
}

TEST_F(WuWTriggerTest, ADetectionClosesTheFeedAndCallsBackOnTheWorker) {
    OpenTrigger trigger;
    countShotsOf(trigger);
    trigger.start();
    fake::platform().forgetCalls();
    detect(83);
    EXPECT_FALSE(trigger.getSRecordListener()->isEnabled());
    EXPECT_EQ(trigger.mEnabled, 0);
    ASSERT_TRUE(fake::platform().waitUntil([&] { return shots == 1; }));
    EXPECT_EQ(level, 83);
    EXPECT_EQ(thread, workerThread());
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Wakeup! wuw: hey quorbit,  confidential level = 83"));
    EXPECT_EQ(fake::platform().count("ecore_main_loop_thread_safe_call_async"), 0u);
    // It listens again only after another start.
    EXPECT_FALSE(fake::engineListens());
    EXPECT_TRUE(engineCalls().empty());
}

TEST_F(WuWTriggerTest, ADetectionDoesNotMakeTheEngineWaitForTheCallback) {
    std::atomic<bool> returned{false};
    bool waited = true;
    WuWTrigger trigger;
    trigger.setCallback([&](int) {
        waited = !fake::platform().waitUntil([&] { return returned.load(); });
        ++shots;
    });
    trigger.start();
    detect(70);
    returned = true;
    ASSERT_TRUE(fake::platform().waitUntil([&] { return shots == 1; }));
    EXPECT_FALSE(waited);
}

TEST_F(WuWTriggerTest, AShotNeedsACallbackButNotAnEnabledTrigger) {
    WuWTrigger trigger;
    trigger._shot(1);
    countShotsOf(trigger);
    trigger._shot(2);
    EXPECT_EQ(shots, 1);
    EXPECT_EQ(level, 2);
}

TEST_F(WuWTriggerTest, ADetectionCallsTheShotOfASubclassButAForcedShotDoesNot) {
    ShotOfItsOwn trigger;
    countShotsOf(trigger);
    detect(7);
    drainWorker();
    EXPECT_EQ(trigger.shot, 7);
    EXPECT_EQ(shots, 0);
    trigger.forceShot();
    drainWorker();
    EXPECT_EQ(trigger.shot, 7);
    EXPECT_EQ(level, -1);
}

TEST_F(WuWTriggerTest, AForcedShotOfAStoppedTriggerStillCallsBackWithMinusOne) {
    WuWTrigger trigger;
    countShotsOf(trigger);
    trigger.forceShot();
    ASSERT_TRUE(fake::platform().waitUntil([&] { return shots == 1; }));
    EXPECT_EQ(level, -1);
}

TEST_F(WuWTriggerTest, AForcedShotStopsListeningFirst) {
    WuWTrigger trigger;
    countShotsOf(trigger);
    trigger.start();
    trigger.forceShot();
    EXPECT_FALSE(fake::engineListens());
    ASSERT_TRUE(fake::platform().waitUntil([&] { return shots == 1; }));
}

TEST_F(WuWTriggerTest, ADetectionWithoutACallbackDoesNothing) {
    WuWTrigger trigger;
    trigger.start();
    detect(50);
    trigger.forceShot();
    drainWorker();
    EXPECT_EQ(shots, 0);
}

TEST_F(WuWTriggerTest, TheCallbackIsReadWhenTheQueuedJobRuns) {
    std::atomic<bool> set{false};
    WuWTrigger trigger;
    trigger.start();
    Util::Singleton<Util::AsyncThread>::getInstance()->asyncCall(
        [&] { return fake::platform().waitUntil([&] { return set.load(); }), false; });
    detect(50);
    countShotsOf(trigger);
    set = true;
    drainWorker();
    EXPECT_EQ(shots, 1);
    EXPECT_EQ(level, 50);
}

TEST_F(WuWTriggerTest, AShotThatIsStillQueuedWhenTheTriggerIsDestroyedIsDropped) {
    std::atomic<bool> gone{false};
    {
        WuWTrigger trigger;
        countShotsOf(trigger);
        trigger.start();
        Util::Singleton<Util::AsyncThread>::getInstance()->asyncCall(
            [&] { return fake::platform().waitUntil([&] { return gone.load(); }), false; });
        detect(50);
        trigger.forceShot();
    }
    gone = true;
    drainWorker();
    EXPECT_EQ(shots, 0);
}

TEST_F(WuWTriggerTest, DestructionDoesNotWaitForARunningCallback) {
    std::atomic<bool> running{false};
    std::atomic<bool> gone{false};
    bool goneFirst = false;
    {
        WuWTrigger trigger;
        trigger.setCallback([&](int) {
            running = true;
            goneFirst = fake::platform().waitUntil([&] { return gone.load(); });
        });
        trigger.start();
        detect(50);
        ASSERT_TRUE(fake::platform().waitUntil([&] { return running.load(); }));
    }
    gone = true;
    drainWorker();
    EXPECT_TRUE(goneFirst);
}

TEST_F(WuWTriggerTest, DestructionCancelsListeningAndThenDestroysTheEngine) {
    {
        WuWTrigger trigger;
        trigger.start();
        fake::platform().forgetCalls();
    }
    EXPECT_EQ(engineCalls(), (Texts{"IWakeupCtx::CancelListening()", "IWakeupCtx::Destroy()"}));
    EXPECT_FALSE(fake::engineExists());
}

TEST_F(WuWTriggerTest, DestructionOfAStoppedTriggerCancelsNothing) {
    {
        WuWTrigger trigger;
        fake::platform().forgetCalls();
    }
    EXPECT_EQ(engineCalls(), Texts{"IWakeupCtx::Destroy()"});
}

TEST_F(WuWTriggerTest, TheEngineMayCallTheEmptiedFeedDuringItsDestruction) {
    nuance::IWakeupAudioIn* feed = nullptr;
    fake::platform().onCall("IWakeupCtx::Destroy", [&](const fake::Call&) {
        bool available = true;
        feed->HasData(available);
        EXPECT_FALSE(available);
        void* data = nullptr;
        unsigned int size = 1;
        feed->FetchData(data, size);
        EXPECT_EQ(data, nullptr);
        feed->Stop();
    });
    {
        WuWTrigger trigger;
        trigger.start();
        feed = fake::engineAudioIn();
        trigger.getSRecordListener()->onDataHandled(new char[4], 4);
    }
    fake::platform().onCall("IWakeupCtx::Destroy", nullptr);
}

TEST_F(WuWTriggerTest, ACancellationIsOnlyLogged) {
    WuWTrigger trigger;
    fake::platform().forgetCalls();
    trigger.OnCanceled();
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "Canced"));
    EXPECT_EQ(fake::platform().logs().size(), 1u);
}

TEST_F(WuWTriggerTest, AnErrorLogsSixErrorLinesWithItsNameAndDetail) {
    WuWTrigger trigger;
    fake::platform().forgetCalls();
    trigger.OnError(Error::COULD_NOT_FIND_ACMOD, "/models");
    Texts lines;
    for (const auto& line : fake::platform().logs()) {
        EXPECT_EQ(line.priority, DLOG_ERROR);
        lines.push_back(line.message);
    }
    EXPECT_EQ(lines, (Texts{"Error", std::string(38, '='), " Error occurred during recognition! ",
                            "  - code   : (COULD_NOT_FIND_ACMOD)", "  - detail : /models", std::string(36, '=')}));
}

TEST_F(WuWTriggerTest, AWarningLogsSixWarningLinesWithItsNameAndDetail) {
    WuWTrigger trigger;
    fake::platform().forgetCalls();
    trigger.OnWarning(Warning::ALREADY_LISTENING, "twice");
    Texts lines;
    for (const auto& line : fake::platform().logs()) {
        EXPECT_EQ(line.priority, DLOG_WARN);
        lines.push_back(line.message);
    }
    EXPECT_EQ(lines, (Texts{"Warning", std::string(38, '='), " Warning occurred during recognition! ",
                            "  - code   : (ALREADY_LISTENING)", "  - detail : twice", std::string(36, '=')}));
}

TEST_F(WuWTriggerTest, EachCodeHasItsName) {
    const char* errors[] = {"NOT_ENOUGH_RESOURCE",     "NOT_IN_PROPER_STATE",      "INVALID_ARGUMENT",
                            "WRONG_VOCON_DATA",        "ERROR_FROM_USER_CALLBACK", "NOT_SUPPORTED",
                            "VOCON_INTERNAL_ERROR",    "COULD_NOT_FIND_ACMOD",     "COULD_NOT_FIND_CLC",
                            "ERROR_FROM_CONFIG_PARSER"};
    for (int code = 0; code < 10; ++code) {
        EXPECT_EQ(WuWTrigger::getErrorCode(static_cast<Error>(code)), errors[code]);
    }
    const char* warnings[] = {"NOT_INITIALIZED",      "ALREADY_LISTENING",   "FAIL_TO_CREATE_DIRECTORY",
                              "AUDIOIN_NOT_ATTACHED", "WAKEUP_WORD_NOT_SET", "FILE_OPEN_FAILED",
                              "INVALID_CONFIG_KEY",   "INVALID_CONFIG_VALUE"};
    for (int code = 0; code < 8; ++code) {
        EXPECT_EQ(WuWTrigger::getWarningCode(static_cast<Warning>(code)), warnings[code]);
    }
}

TEST_F(WuWTriggerTest, ACodeWithoutANameThrowsAfterTheFirstLines) {
    WuWTrigger trigger;
    fake::platform().forgetCalls();
    EXPECT_THROW(trigger.OnError(static_cast<Error>(10), "x"), std::out_of_range);
    EXPECT_EQ(fake::platform().logs().size(), 3u) << "only the first lines";
    EXPECT_THROW(trigger.OnWarning(static_cast<Warning>(8), "x"), std::out_of_range);
}

TEST_F(WuWTriggerTest, TheBaseClassCallsBackOnlyWhenEnabledAndOnlyItsShotActs) {
    struct Probe : Trigger {
        using Trigger::mEnabled;
    } probe;
    probe._shot(1);
    int got = 0;
    probe.setCallback([&](int value) { got = value; });
    probe.start();
    probe._shot(2);
    EXPECT_EQ(got, 0) << "start of the base class does nothing";
    probe.mEnabled = 1;
    probe.stop();
    probe.forceShot();
    EXPECT_EQ(got, 0);
    probe._shot(3);
    EXPECT_EQ(got, 3);
}
