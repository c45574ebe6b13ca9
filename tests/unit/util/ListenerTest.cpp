// SPDX-License-Identifier: Apache-2.0
#include <memory>

#include "Util/ConnectionStateListener.h"
#include "Util/VConfStateListener.h"
#include "fake/data/FakeSettings.h"
#include "unit/Fixture.h"

class ListenerTest : public PlatformTest {
protected:
    Util::SystemConfig::Callback note(const std::string& name) {
        return [this, name](void* datum) { heard.push_back(name + (datum == this ? "!" : "")); };
    }
    Texts heard;
};

TEST_F(ListenerTest, TwoCallbacksShareOneSubscriptionAndRunInOrderOfRegistration) {
    config().addLangStateChangedListener(note("first"), this);
    config().addLangStateChangedListener(note("second"), nullptr);
    EXPECT_EQ(fake::platform().count("vconf_notify_key_changed"), 1u);
    fake::changeSetting("db/orvane/setting/lang", 3);
    EXPECT_EQ(heard, (Texts{"first!", "second"}));
}

TEST_F(ListenerTest, WritingTheSameValueAgainCallsNoCallback) {
    fake::setSetting("db/mic_key/status", 1);
    config().addMicStateChangedListener(note("mic"), nullptr);
    fake::changeSetting("db/mic_key/status", 1);
    EXPECT_TRUE(heard.empty());
    fake::changeSetting("db/mic_key/status", 0);
    fake::changeSetting("db/mic_key/status", 0);
    EXPECT_EQ(heard, Texts{"mic"});
}

TEST_F(ListenerTest, ATextIsComparedByContent) {
    fake::setSetting("db/menu_widget/language", std::string("en_US.UTF-8"));
    config().addWidgetLangStateChangedListener(note("menu"), nullptr);
    // The initial value is the locale without its encoding, so the first complete text is a change.
    fake::changeSetting("db/menu_widget/language", std::string("en_US.UTF-8"));
    EXPECT_EQ(heard.size(), 1u);
    fake::changeSetting("db/menu_widget/language", std::string("en_US.UTF-8"));
    EXPECT_EQ(heard.size(), 1u);
    fake::changeSetting("db/menu_widget/language", std::string("de_DE.UTF-8"));
    EXPECT_EQ(heard.size(), 2u);
}

TEST_F(ListenerTest, ATextIsFirstComparedWithTheInitialOne) {
    Util::VConfStateListener listener("key", std::string("de_DE"));
    listener.addCallback(note("text"), nullptr);
    fake::changeSetting("key", std::string("de_DE"));
    EXPECT_TRUE(heard.empty());
    fake::changeSetting("key", std::string("it_IT"));
    EXPECT_EQ(heard, Texts{"text"});
}

TEST_F(ListenerTest, ASwitchWatchedThroughTheIntConstructorIsFirstComparedWithFalse) {
    fake::setSetting("db/orvane/setting/voice_wakeup", 1);
    config().addVoiceWakeupStateChangedListener(note("wakeup"), nullptr);
    fake::changeSetting("db/orvane/setting/voice_wakeup", false);
    EXPECT_TRUE(heard.empty());
    fake::changeSetting("db/orvane/setting/voice_wakeup", true);
    EXPECT_EQ(heard.size(), 1u);
    fake::changeSetting("db/orvane/setting/voice_wakeup", true);
    EXPECT_EQ(heard.size(), 1u);
}

TEST_F(ListenerTest, ADoubleIsComparedAsADouble) {
    Util::VConfStateListener listener("key", 1.5);
    listener.addCallback(note("double"), nullptr);
    fake::changeSetting("key", 1.5);
    EXPECT_TRUE(heard.empty());
    fake::changeSetting("key", 2.5);
    EXPECT_EQ(heard.size(), 1u);
}

TEST_F(ListenerTest, AValueOfAnUnknownTypeIsIgnored) {
    config().addMicStateChangedListener(note("mic"), nullptr);
    fake::changeSettingToUnknownType("db/mic_key/status");
    EXPECT_TRUE(heard.empty());
}

TEST_F(ListenerTest, EachRegistrationWatchesItsKey) {
    auto any = [](void*) {};
    config().addWidgetLangStateChangedListener(any, nullptr);
    config().addMicStateChangedListener(any, nullptr);
    config().addCountryStateChangedListener(any, nullptr);
    config().addVoiceWakeupWordChangedListener(any, nullptr);
    config().addLangStateChangedListener(any, nullptr);
    config().addVoiceWakeupStateChangedListener(any, nullptr);
    config().addVoiceFeedbackStateChangedListener(any, nullptr);
    EXPECT_EQ(fake::platform().textsOf({"vconf_notify"}),
              (Texts{"vconf_notify_key_changed(db/menu_widget/language)", "vconf_notify_key_changed(db/mic_key/status)",
                     "vconf_notify_key_changed(db/setting/country_code)",
                     "vconf_notify_key_changed(db/orvane/setting/voice_wakeup_word)",
                     "vconf_notify_key_changed(db/orvane/setting/lang)",
                     "vconf_notify_key_changed(db/orvane/setting/voice_wakeup)",
                     "vconf_notify_key_changed(db/orvane/setting/voice_feedback)"}));
}

TEST_F(ListenerTest, TheFirstRegistrationReadsTheValueAndThenSubscribes) {
    config().addLangStateChangedListener([](void*) {}, nullptr);
    config().addLangStateChangedListener([](void*) {}, nullptr);
    EXPECT_EQ(fake::platform().texts(),
              (Texts{"vconf_get_int(db/orvane/setting/lang)", "vconf_notify_key_changed(db/orvane/setting/lang)"}));
}

TEST_F(ListenerTest, NumbersAreFirstComparedWithTheConvertedValue) {
    // An unlisted language is American English, an unlisted wake word is the first one, and an unreadable microphone is
    // on.
    fake::setSetting("db/orvane/setting/lang", 9);
    fake::setSetting("db/orvane/setting/voice_wakeup_word", 5);
    config().addLangStateChangedListener(note("lang"), nullptr);
    config().addVoiceWakeupWordChangedListener(note("word"), nullptr);
    config().addMicStateChangedListener(note("mic"), nullptr);
    fake::changeSetting("db/orvane/setting/lang", 1);
    fake::changeSetting("db/orvane/setting/voice_wakeup_word", 0);
    fake::changeSetting("db/mic_key/status", 1);
    EXPECT_TRUE(heard.empty());
    fake::changeSetting("db/orvane/setting/lang", 2);
    fake::changeSetting("db/orvane/setting/voice_wakeup_word", 1);
    fake::changeSetting("db/mic_key/status", 0);
    EXPECT_EQ(heard, (Texts{"lang", "word", "mic"}));
}

TEST_F(ListenerTest, TheCountryIsFirstComparedWithAnEmptyText) {
    fake::setSetting("db/setting/country_code", std::string("KR"));
    config().addCountryStateChangedListener(note("country"), nullptr);
    fake::changeSetting("db/setting/country_code", std::string(""));
    EXPECT_TRUE(heard.empty());
    fake::changeSetting("db/setting/country_code", std::string("KR"));
    EXPECT_EQ(heard, Texts{"country"});
}

TEST_F(ListenerTest, TheVoiceFeedbackSwitchIsFirstComparedWithFalse) {
    fake::setSetting("db/orvane/setting/voice_feedback", 1);
    config().addVoiceFeedbackStateChangedListener(note("feedback"), nullptr);
    fake::changeSetting("db/orvane/setting/voice_feedback", false);
    EXPECT_TRUE(heard.empty());
    fake::changeSetting("db/orvane/setting/voice_feedback", true);
    EXPECT_EQ(heard, Texts{"feedback"});
}

TEST_F(ListenerTest, ASwitchWatchedThroughTheBoolConstructorIsComparedWithItsValue) {
    Util::VConfStateListener listener("key", true);
    listener.addCallback(note("switch"), nullptr);
    fake::changeSetting("key", true);
    EXPECT_TRUE(heard.empty());
    fake::changeSetting("key", false);
    EXPECT_EQ(heard, Texts{"switch"});
}

TEST_F(ListenerTest, AnEmptyCallbackEndsTheProcessWhenItIsCalled) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    config().addMicStateChangedListener(nullptr, nullptr);
    EXPECT_DEATH(fake::changeSetting("db/mic_key/status", 0), "bad_function_call");
    config().addConnectionStateChangedListener(nullptr, nullptr);
    EXPECT_DEATH(fake::changeConnection(CONNECTION_TYPE_DISCONNECTED), "bad_function_call");
}

TEST(AStateListener, RaisesABadFunctionCallForAnEmptyCallback) {
    struct : Util::SystemStateListener {
        using SystemStateListener::callAll;
    } listener;
    listener.addCallback(nullptr, nullptr);
    EXPECT_THROW(listener.callAll(), std::bad_function_call);
}

TEST_F(ListenerTest, DestroyingTheConfigurationEndsEverySubscription) {
    config().addMicStateChangedListener(note("mic"), nullptr);
    config().addConnectionStateChangedListener(note("net"), nullptr);
    Util::Singleton<Util::SystemConfig>::destroy();
    EXPECT_EQ(fake::platform().count("vconf_ignore_key_changed"), 1u);
    EXPECT_EQ(fake::platform().count("connection_unset_type_changed_cb"), 1u);
    fake::changeSetting("db/mic_key/status", 0);
    EXPECT_TRUE(heard.empty());
}

TEST_F(ListenerTest, OnlyAnotherConnectionTypeCallsBack) {
    config().addConnectionStateChangedListener(note("net"), this);
    EXPECT_EQ(fake::platform().count("connection_set_type_changed_cb"), 1u);
    fake::changeConnection(CONNECTION_TYPE_ETHERNET);
    EXPECT_TRUE(heard.empty());
    fake::changeConnection(CONNECTION_TYPE_DISCONNECTED);
    fake::changeConnection(CONNECTION_TYPE_DISCONNECTED);
    EXPECT_EQ(heard, Texts{"net!"});
}

// As in a program that could not open a connection at its start.
class WithoutAConnection : public ListenerTest {
protected:
    using Initializer = Util::ConnectionStateListener::ConnectionInitializer;
    void SetUp() override {
        ListenerTest::SetUp();
        fake::platform().answer("connection_create", -5);
        openAgain();
    }
    void TearDown() override {
        ListenerTest::TearDown();
        fake::platform().answer("connection_create", 0);
        openAgain();
    }
    static void openAgain() {
        Util::ConnectionStateListener::mInitializer.~Initializer();
        new (&Util::ConnectionStateListener::mInitializer) Initializer;
        fake::platform().forgetCalls();
    }
};

TEST_F(WithoutAConnection, TheTypeIsDisconnectedAndThePlatformIsNotCalled) {
    EXPECT_EQ(config().getConnectionState(), CONNECTION_TYPE_DISCONNECTED);
    EXPECT_TRUE(fake::platform().story().empty());
}

TEST_F(WithoutAConnection, ACallbackIsKeptAndNeverCalled) {
    const auto token = std::make_shared<int>(0);
    for (int i = 0; i < 2; ++i) {
        config().addConnectionStateChangedListener([this, token](void*) { heard.push_back("called"); }, nullptr);
    }
    EXPECT_EQ(token.use_count(), 3) << "both are kept";
    fake::changeConnection(CONNECTION_TYPE_WIFI);
    Util::Singleton<Util::SystemConfig>::destroy();
    EXPECT_EQ(token.use_count(), 1);
    EXPECT_TRUE(heard.empty());
    EXPECT_TRUE(fake::platform().story().empty()) << "neither set nor unset";
}

TEST_F(ListenerTest, TheInitializerClosesItsConnection) {
    { Util::ConnectionStateListener::ConnectionInitializer another; }
    EXPECT_EQ(fake::platform().names(), (Texts{"connection_create", "connection_destroy"}));
}

TEST_F(ListenerTest, TheConnectionIsOpenedOnceAtProgramStart) {
    EXPECT_NE(Util::ConnectionStateListener::mInitializer.getHandle(), nullptr);
    Util::ConnectionStateListener one(CONNECTION_TYPE_WIFI);
    EXPECT_EQ(fake::platform().count("connection_create"), 0u);
}
