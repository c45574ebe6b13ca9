// SPDX-License-Identifier: Apache-2.0
// Applications that want results, on a bus of the tests' own.
#include <gio/gio.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>

#include "VoiceRoom.h"
#include "gio/GPointer.h"
#include "gio/IoThread.h"
#include "support/OwnConnection.h"
#include "support/PrivateBus.h"
#include "voice/manager/Clients.h"

namespace {

using speech::join;
using speech::silence;
using testing::HasSubstr;

// An application on a connection of its own.
class Application {
public:
    Application() {
        mBus = ownConnection(privateBusAddress());
        gio::IoThread::get().run([this] { exportClient(); });
    }
    ~Application() { leave(); }

    void registerFor(const std::vector<const char*>& agents) {
        gio::Error fault;
        const gio::Variant answer(g_dbus_connection_call_sync(
            mBus.get(), "org.orvane.VoiceControl", "/org/orvane/VoiceControl", "org.orvane.VoiceControl1", "Register",
            g_variant_new("(@as)", g_variant_new_strv(agents.data(), static_cast<gssize>(agents.size()))), nullptr,
            G_DBUS_CALL_FLAGS_NONE, 5000, nullptr, fault.out()));
        ASSERT_TRUE(answer) << fault.message();
    }
    // Once it returns, everything sent to the application before has arrived on its connection.
    void roundTrip() {
        if (mBus) {
            gio::Error fault;
            const gio::Variant answer(g_dbus_connection_call_sync(
                mBus.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetId", nullptr,
                nullptr, G_DBUS_CALL_FLAGS_NONE, 5000, nullptr, fault.out()));
            EXPECT_TRUE(answer) << fault.message();
        }
    }
    void leave() {
        if (mBus) {
            g_dbus_connection_close_sync(mBus.get(), nullptr, nullptr);
            mBus.reset();
        }
    }

    std::atomic<int> results{0};
    std::string text;
    std::string json;

private:
    void exportClient() {
        GDBusNodeInfo* node = g_dbus_node_info_new_for_xml(
            "<node><interface name='org.orvane.VoiceClient1'><method name='Result'>"
            "<arg type='s' direction='in'/><arg type='s' direction='in'/></method></interface></node>",
            nullptr);
        static const GDBusInterfaceVTable methods{onResult, nullptr, nullptr, {}};
        g_dbus_connection_register_object(mBus.get(), "/org/orvane/VoiceClient", node->interfaces[0], &methods, this,
                                          nullptr, nullptr);
        g_dbus_node_info_unref(node);
    }

    static void onResult(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant* arguments,
                         GDBusMethodInvocation* invocation, gpointer data) noexcept {
        auto* self = static_cast<Application*>(data);
        const char* text = nullptr;
        const char* json = nullptr;
        g_variant_get(arguments, "(&s&s)", &text, &json);
        self->text = text;
        self->json = json;
        ++self->results;
        g_dbus_method_invocation_return_value(invocation, nullptr);
    }

    gio::Object<GDBusConnection> mBus;
};

class AResult : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(mRoom.makeReady());
        mRecipes.registerFor({"Recipe"});
        mOther.registerFor({"Recipe", "Clock"});
        mClock.registerFor({"Clock"});
    }
    // Applications of the tests before may take a moment to be forgotten.
    void TearDown() override {
        mRecipes.leave();
        mOther.leave();
        mClock.leave();
        EXPECT_TRUE(
            mRoom.runUntil([] { return voice::clientsFor("Recipe").empty() && voice::clientsFor("Clock").empty(); }));
    }

    void hear(const std::string& sentence) {
        microphone::speak(join({silence(0.4), speech::say("rms", sentence)}));
        microphone::fallSilent();
        ASSERT_EQ(vc_mgr_start(false), VC_ERROR_NONE);
        ASSERT_TRUE(mRoom.runUntilEvent("service 3->1"));
        letResultsArrive();
    }

    void letResultsArrive() {
        gio::IoThread::get().run([] {});  // what is posted for sending is sent
        Application().registerFor({});    // the service has answered behind it
        for (Application* application : {&mRecipes, &mOther, &mClock}) {
            application->roundTrip();
        }
        gio::IoThread::get().run([] {});  // what has arrived is handled
    }

    VoiceRoom mRoom;
    Application mRecipes;
    Application mOther;
    Application mClock;
};

TEST_F(AResult, GoesToEveryApplicationThatRegisteredForItsAgent) {
    hear("read out the recipe");
    EXPECT_TRUE(mRoom.runUntil([&] { return mRecipes.results == 1 && mOther.results == 1; }));
    EXPECT_EQ(mClock.results, 0);
    EXPECT_EQ(mRecipes.text, "read out the recipe");
    EXPECT_THAT(mRecipes.json, HasSubstr("\"action_name\":\"Read Out\""));
    EXPECT_THAT(mRoom.pids, testing::ElementsAre(getpid(), getpid()));
    EXPECT_EQ(mRoom.jsons.at(0), mRoom.jsons.at(1));
}

TEST_F(AResult, GoesOnlyToTheCommandsThatAreSelected) {
    mRoom.inResult = [](vc_cmd_list_h list) {
        vc_cmd_h first = nullptr;
        vc_cmd_list_first(list);
        vc_cmd_list_get_current(list, &first);
        vc_cmd_list_remove(list, first);
        EXPECT_EQ(vc_mgr_set_selected_results(list), VC_ERROR_NONE);
        return false;
    };
    hear("read out the recipe");
    EXPECT_TRUE(mRoom.runUntil([&] { return mOther.results == 1; }));
    EXPECT_EQ(mRecipes.results, 0);
}

TEST_F(AResult, CarriedOutByTheServiceGoesToNobody) {
    mRoom.inResult = [](vc_cmd_list_h) { return true; };
    hear("what time is it");
    EXPECT_EQ(mClock.results + mOther.results, 0);
}

TEST_F(AResult, CancelledByTheServiceGoesToNobodyEvenWhenSelected) {
    mRoom.inResult = [](vc_cmd_list_h list) {
        vc_mgr_cancel();
        vc_mgr_set_selected_results(list);
        return false;
    };
    hear("what time is it");
    EXPECT_EQ(mClock.results + mOther.results, 0);
}

TEST_F(AResult, GoesNoMoreToAnApplicationThatHasLeft) {
    mRecipes.leave();
    ASSERT_TRUE(mRoom.runUntil([] { return voice::clientsFor("Recipe").size() == 1; }));
    hear("read out the recipe");
    EXPECT_TRUE(mRoom.runUntil([&] { return mOther.results == 1; }));
    EXPECT_THAT(mRoom.pids, testing::ElementsAre(getpid()));
}

TEST_F(AResult, GoesOnceToAnApplicationThatRegistersAgainForOtherAgents) {
    mRecipes.registerFor({"Clock"});
    EXPECT_EQ(voice::clientsFor("Recipe").size(), 1U);
    EXPECT_EQ(voice::clientsFor("Clock").size(), 3U);
}

}  // namespace
