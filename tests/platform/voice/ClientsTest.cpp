// SPDX-License-Identifier: Apache-2.0
// Applications that register for results, on a private bus.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>

#include "VoiceHarness.h"
#include "bus/SessionBus.h"
#include "dbus/Interfaces.h"
#include "support/Caller.h"
#include "support/OwnConnection.h"
#include "support/PrivateBus.h"
#include "voice/manager/Clients.h"

namespace {

using speech::join;
using speech::silence;
using testing::HasSubstr;

// An application with a private connection.
class Application {
public:
    Application() {
        mObject = mBus.exportObject("/org/orvane/VoiceClient", dbus::interface("org.orvane.VoiceClient1"),
                                    [this](gio::MethodCall& call) { onResult(call); });
    }

    void registerFor(const std::vector<std::string>& agents) {
        mBus.call({"org.orvane.VoiceControl", "/org/orvane/VoiceControl", "org.orvane.VoiceControl1"}, "Register",
                  gio::Variant::tuple(agents));
    }
    // Returns when everything that was sent to the application before has arrived on its connection.
    void roundTrip() {
        if (mBus.isOpen()) {
            mBus.call(gio::messageBus(), "GetId");
        }
    }
    void leave() { mBus.close(); }

    std::atomic<int> results{0};
    std::string text;
    std::string json;

private:
    void onResult(gio::MethodCall& call) {
        std::tie(text, json) = call.arguments().fields<std::string, std::string>();
        ++results;
        call.reply();
    }

    gio::Connection mBus = ownConnection(privateBusAddress());
    gio::Registration mObject;
};

class AResult : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(mVoice.makeReady());
        mRecipes.registerFor({"Recipe"});
        mOther.registerFor({"Recipe", "Clock"});
        mClock.registerFor({"Clock"});
    }
    // The service needs a moment to forget applications that have left.
    void TearDown() override {
        mRecipes.leave();
        mOther.leave();
        mClock.leave();
        EXPECT_TRUE(
            mVoice.runUntil([] { return voice::clientsFor("Recipe").empty() && voice::clientsFor("Clock").empty(); }));
    }

    void say(const std::string& sentence) {
        microphone::speak(join({silence(0.4), speech::say("rms", sentence)}));
        microphone::fallSilent();
        ASSERT_EQ(vc_mgr_start(false), VC_ERROR_NONE);
        ASSERT_TRUE(mVoice.runUntilEvent("service 3->1"));
        letResultsArrive();
    }

    void letResultsArrive() {
        bus::ioThread().run([] {});     // posted results are sent
        Application().registerFor({});  // the service replies after it has sent them
        for (Application* application : {&mRecipes, &mOther, &mClock}) {
            application->roundTrip();
        }
        bus::ioThread().run([] {});  // results that have arrived are handled
    }

    VoiceHarness mVoice;
    Application mRecipes;
    Application mOther;
    Application mClock;
};

TEST_F(AResult, GoesToEveryApplicationThatRegisteredForItsAgent) {
    say("read out the recipe");
    EXPECT_TRUE(mVoice.runUntil([&] { return mRecipes.results == 1 && mOther.results == 1; }));
    EXPECT_EQ(mClock.results, 0);
    EXPECT_EQ(mRecipes.text, "read out the recipe");
    EXPECT_THAT(mRecipes.json, HasSubstr("\"action_name\":\"Read Out\""));
    EXPECT_THAT(mVoice.pids, testing::ElementsAre(getpid(), getpid()));
    EXPECT_EQ(mVoice.jsons.at(0), mVoice.jsons.at(1));
}

TEST_F(AResult, GoesOnlyToTheCommandsThatAreSelected) {
    mVoice.inResult = [](vc_cmd_list_h list) {
        vc_cmd_h first = nullptr;
        vc_cmd_list_first(list);
        vc_cmd_list_get_current(list, &first);
        vc_cmd_list_remove(list, first);
        EXPECT_EQ(vc_mgr_set_selected_results(list), VC_ERROR_NONE);
        return false;
    };
    say("read out the recipe");
    EXPECT_TRUE(mVoice.runUntil([&] { return mOther.results == 1; }));
    EXPECT_EQ(mRecipes.results, 0);
}

TEST_F(AResult, CarriedOutByTheServiceReachesNoApplication) {
    mVoice.inResult = [](vc_cmd_list_h) { return true; };
    say("what time is it");
    EXPECT_EQ(mClock.results + mOther.results, 0);
}

TEST_F(AResult, CanceledByTheServiceReachesNoApplicationEvenWhenSelected) {
    mVoice.inResult = [](vc_cmd_list_h list) {
        vc_mgr_cancel();
        vc_mgr_set_selected_results(list);
        return false;
    };
    say("what time is it");
    EXPECT_EQ(mClock.results + mOther.results, 0);
}

TEST_F(AResult, DoesNotReachAnApplicationThatHasLeft) {
    mRecipes.leave();
    ASSERT_TRUE(mVoice.runUntil([] { return voice::clientsFor("Recipe").size() == 1; }));
    say("read out the recipe");
    EXPECT_TRUE(mVoice.runUntil([&] { return mOther.results == 1; }));
    EXPECT_THAT(mVoice.pids, testing::ElementsAre(getpid()));
}

TEST_F(AResult, GoesOnceToAnApplicationThatRegistersAgainForOtherAgents) {
    mRecipes.registerFor({"Clock"});
    EXPECT_EQ(voice::clientsFor("Recipe").size(), 1U);
    EXPECT_EQ(voice::clientsFor("Clock").size(), 3U);
}

TEST_F(AResult, CannotBeRequestedByAnotherUser) {
    if (!Caller::canBecomeAnotherUser()) {
        GTEST_SKIP() << "only root can become another user";
    }
    const Caller caller;
    const std::vector<std::string> words{"org.orvane.VoiceControl", "/org/orvane/VoiceControl",
                                         "org.orvane.VoiceControl1", "Register"};
    EXPECT_EQ(caller.callAsAnotherUser(words), "org.freedesktop.DBus.Error.AccessDenied");
    EXPECT_EQ(voice::clientsFor("Recipe").size(), 2U);
    EXPECT_EQ(caller.call(words), "accepted");
}

}  // namespace
