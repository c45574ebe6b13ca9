// SPDX-License-Identifier: Apache-2.0
#include "Util/SystemConfig.h"

#include "fake/data/FakeSettings.h"
#include "unit/Fixture.h"

using Util::OrvaneLang;
using Util::OrvaneWUW;

class SystemConfigTest : public PlatformTest {
protected:
    static void leaveTheBox() {
        for (const char* key :
             {"db/pwlock/factory_boot", "db/pwlock/setup_wizard", "memory/refrigerator/OtnProgress", "db/demo_mode"}) {
            fake::setSetting(key, 0);
        }
    }
    static Texts reads() { return fake::platform().textsOf({"vconf_get"}); }
    static size_t errors() {
        size_t count = 0;
        for (const auto& line : fake::platform().logs()) {
            count += line.priority == DLOG_ERROR;
        }
        return count;
    }
};

TEST_F(SystemConfigTest, StoredOneAndSevenAreAmericanEnglish) {
    for (const int stored : {1, 7}) {
        fake::setSetting("db/orvane/setting/lang", stored);
        EXPECT_EQ(config().getLangStr(), "en_US") << stored;
    }
}

TEST_F(SystemConfigTest, AnyUnlistedStoredLanguageIsAmericanEnglish) {
    const std::pair<int, int> rows[] = {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 4},
                                        {5, 5}, {6, 6}, {7, 7}, {8, 1}, {-2, 1}};
    for (const auto& [stored, read] : rows) {
        fake::setSetting("db/orvane/setting/lang", stored);
        EXPECT_EQ(static_cast<int>(config().getOrvaneLang()), read) << stored;
    }
}

TEST_F(SystemConfigTest, AMissingLanguageIsAmericanEnglishAndLogsItsOwnError) {
    EXPECT_EQ(config().getOrvaneLang(), OrvaneLang::EN_US);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "VConf Read Fail : db/orvane/setting/lang"));
    EXPECT_EQ(errors(), 1u);
}

TEST_F(SystemConfigTest, EachLanguageHasItsLocale) {
    const char* locales[] = {"ko_KR", "en_US", "en_GB", "zh_CN", "de_DE", "it_IT", "fr_FR", "en_US"};
    for (int value = 0; value < 8; ++value) {
        fake::setSetting("db/orvane/setting/lang", value);
        EXPECT_EQ(config().getLangStr(), locales[value]);
    }
}

TEST_F(SystemConfigTest, TheHubsLocaleHasADash) {
    fake::setSetting("db/orvane/setting/lang", 4);
    EXPECT_EQ(config().getSHLLangStr(), "de-DE");
}

TEST_F(SystemConfigTest, AnUnlistedLanguageIsStoredAsAmericanEnglish) {
    config().setOrvaneLang(static_cast<OrvaneLang>(9));
    EXPECT_EQ(fake::setting("db/orvane/setting/lang"), 1);
    config().setOrvaneLang(static_cast<OrvaneLang>(7));
    EXPECT_EQ(fake::setting("db/orvane/setting/lang"), 7);
}

TEST_F(SystemConfigTest, TheMenuLocaleHasNoEncoding) {
    EXPECT_EQ(config().getWidgetLangStr(), "en_US");
    fake::setSetting("db/menu_widget/language", std::string("de_DE.UTF-8"));
    EXPECT_EQ(config().getWidgetLangStr(), "de_DE");
    fake::setSetting("db/menu_widget/language", std::string("fr_FR"));
    EXPECT_EQ(config().getWidgetLangStr(), "fr_FR");
}

TEST_F(SystemConfigTest, CountriesHaveTheirCodes) {
    EXPECT_EQ(config().getSystemCountry(), 1);
    const char* names[] = {"KR", "US", "CN", "GB", "DE", "FR", "IT", "CH",
                           "BR", "AU", "NZ", "ZA", "EU", "NO", "SE", "JP"};
    for (int code = 0; code < 16; ++code) {
        fake::setSetting("db/setting/country_code", std::string(names[code]));
        EXPECT_EQ(config().getSystemCountry(), code) << names[code];
    }
}

TEST_F(SystemConfigTest, RegionsHaveTheirCodes) {
    EXPECT_EQ(config().getSystemRegion(), 1);
    const char* names[] = {"KR", "US", "EU", "AU", "XX"};
    for (int code = 0; code < 5; ++code) {
        fake::setSetting("db/setting/region_code", std::string(names[code]));
        EXPECT_EQ(config().getSystemRegion(), code);
    }
}

TEST_F(SystemConfigTest, AMissingSwitchHasItsDefaultAndIsLogged) {
    EXPECT_EQ(config().getMicState(), 1);
    EXPECT_TRUE(config().getVoiceFeedbackState());
    EXPECT_TRUE(config().getVoiceWakeupState());
    EXPECT_FALSE(config().getVoiceResponseState());
    EXPECT_FALSE(config().getVoiceBOSResponseState());
    EXPECT_EQ(config().getVoiceWakeupWord(), OrvaneWUW::QUORBIT);
    for (const char* key :
         {"db/mic_key/status", "db/orvane/setting/voice_feedback", "db/orvane/setting/voice_wakeup",
          "db/orvane/manager/response", "db/orvane/manager/bos_response", "db/orvane/setting/voice_wakeup_word"}) {
        EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, std::string("Vconf Read Fail : ") + key)) << key;
    }
}

TEST_F(SystemConfigTest, AValueIsUsedRegardlessOfTheReturnCode) {
    fake::platform().answer("vconf_get_int", -1);
    fake::platform().answer("vconf_get_bool", -1);
    leaveTheBox();
    fake::setSetting("db/mic_key/status", 0);
    fake::setSetting("db/orvane/setting/lang", 4);
    fake::setSetting("db/orvane/setting/voice_wakeup_word", 1);
    fake::setSetting("db/orvane/setting/voice_feedback", 0);
    fake::setSetting("db/setting/lcd_backlight_normal", 30);
    EXPECT_TRUE(config().isOutOfBoxing());
    EXPECT_EQ(config().getMicState(), 0);
    EXPECT_EQ(config().getOrvaneLang(), OrvaneLang::DE_DE);
    EXPECT_EQ(config().getVoiceWakeupWord(), OrvaneWUW::VEXAL);
    EXPECT_FALSE(config().getVoiceFeedbackState());
    EXPECT_EQ(config().getLcdTimeout(), 30);
    EXPECT_EQ(errors(), 0u);
}

TEST_F(SystemConfigTest, AStoredMinusOneIsAMissingValue) {
    leaveTheBox();
    for (const char* key : {"db/mic_key/status", "db/orvane/setting/lang", "db/orvane/setting/voice_wakeup_word",
                            "db/orvane/setting/voice_feedback", "db/demo_mode"}) {
        fake::setSetting(key, -1);
    }
    EXPECT_EQ(config().getMicState(), 1);
    EXPECT_EQ(config().getOrvaneLang(), OrvaneLang::EN_US);
    EXPECT_EQ(config().getVoiceWakeupWord(), OrvaneWUW::QUORBIT);
    EXPECT_TRUE(config().getVoiceFeedbackState());
    EXPECT_FALSE(config().isOutOfBoxing());
    EXPECT_EQ(errors(), 5u);
}

TEST_F(SystemConfigTest, AFailedReadIsLoggedForItsGetter) {
    config().getMicState();
    config().getVoiceFeedbackState();
    config().getSystemCountry();
    const auto logs = fake::platform().logs();
    ASSERT_EQ(logs.size(), 3u);
    EXPECT_NE(logs[0].text.find(" SystemConfig.cpp: getMicState("), std::string::npos);
    EXPECT_NE(logs[1].text.find(" SystemConfig.cpp: getVoiceFeedbackState("), std::string::npos);
    EXPECT_NE(logs[2].text.find(" SystemConfig.cpp: getSystemCountry("), std::string::npos);
}

TEST_F(SystemConfigTest, AMissingTextHasItsDefaultAndIsLogged) {
    EXPECT_EQ(config().getWidgetLangStr(), "en_US");
    EXPECT_EQ(config().getSystemCountry(), Util::Country::US);
    EXPECT_EQ(config().getSystemRegion(), Util::Region::US);
    for (const char* key : {"db/menu_widget/language", "db/setting/country_code", "db/setting/region_code"}) {
        EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, std::string("Vconf Read Fail : ") + key)) << key;
    }
    EXPECT_EQ(errors(), 3u);
}

TEST_F(SystemConfigTest, AMissingTimeoutIsMinusOneAndIsNotLogged) {
    EXPECT_EQ(config().getScreenSaverTimeout(), -1);
    EXPECT_EQ(config().getLcdTimeout(), -1);
    EXPECT_TRUE(fake::platform().logs().empty());
}

TEST_F(SystemConfigTest, SwitchesAreLoggedAndThenStored) {
    config().setVoiceFeedbackState(true);
    config().setVoiceWakeupState(false);
    config().setVoiceResponseState(true);
    config().setVoiceBOSResponseState(false);
    EXPECT_EQ(fake::platform().story(),
              (Texts{"log: setVoiceFeedbackState to : 1", "vconf_set_bool(db/orvane/setting/voice_feedback, 1)",
                     "log: setVoiceWakeupState to : 0", "vconf_set_bool(db/orvane/setting/voice_wakeup, 0)",
                     "log: setVoiceResponseState to : 1", "vconf_set_bool(db/orvane/manager/response, 1)",
                     "log: setVoiceBOSResponseState to : 0", "vconf_set_bool(db/orvane/manager/bos_response, 0)"}));
    for (const auto& line : fake::platform().logs()) {
        EXPECT_EQ(line.priority, DLOG_DEBUG);
    }
}

TEST_F(SystemConfigTest, SwitchesAreReadAsStored) {
    fake::setSetting("db/mic_key/status", 0);
    EXPECT_EQ(config().getMicState(), 0);
    for (const bool on : {false, true}) {
        config().setVoiceFeedbackState(on);
        config().setVoiceWakeupState(on);
        config().setVoiceResponseState(on);
        config().setVoiceBOSResponseState(on);
        EXPECT_EQ(config().getVoiceFeedbackState(), on);
        EXPECT_EQ(config().getVoiceWakeupState(), on);
        EXPECT_EQ(config().getVoiceResponseState(), on);
        EXPECT_EQ(config().getVoiceBOSResponseState(), on);
    }
    EXPECT_EQ(errors(), 0u);
}

TEST_F(SystemConfigTest, TimeoutsAreReadAsStored) {
    fake::setSetting("db/pm/event-ss-wait-time", 0);
    fake::setSetting("db/setting/lcd_backlight_normal", 30);
    EXPECT_EQ(config().getScreenSaverTimeout(), 0);
    EXPECT_EQ(config().getLcdTimeout(), 30);
}

TEST_F(SystemConfigTest, TheMicrophoneSwitchIsStoredBeforeItsLightChanges) {
    config().setMicState(true);
    config().setMicState(false);
    EXPECT_EQ(fake::platform().texts(),
              (Texts{"vconf_set_int(db/mic_key/status, 1)", "device_touchkey_set_mic_led(1)",
                     "vconf_set_int(db/mic_key/status, 0)", "device_touchkey_set_mic_led(0)"}));
}

TEST_F(SystemConfigTest, TheWakeWordIsOneOfTwo) {
    fake::setSetting("db/orvane/setting/voice_wakeup_word", 1);
    EXPECT_EQ(config().getVoiceWakeupWord(), OrvaneWUW::VEXAL);
    fake::setSetting("db/orvane/setting/voice_wakeup_word", 2);
    EXPECT_EQ(config().getVoiceWakeupWord(), OrvaneWUW::QUORBIT);
    config().setVoiceWakeupWord(static_cast<OrvaneWUW>(5));
    EXPECT_EQ(fake::setting("db/orvane/setting/voice_wakeup_word"), 1);
    config().setVoiceWakeupWord(OrvaneWUW::QUORBIT);
    EXPECT_EQ(fake::setting("db/orvane/setting/voice_wakeup_word"), 0);
}

TEST_F(SystemConfigTest, AnLcdTimeoutBelowOneIsIgnored) {
    config().setLcdTimeout(0);
    config().setLcdTimeout(-1);
    EXPECT_TRUE(fake::platform().texts().empty());
    config().setLcdTimeout(1);
    EXPECT_EQ(fake::setting("db/setting/lcd_backlight_normal"), 1);
}

TEST_F(SystemConfigTest, ResettingTheScreenSaverNotifiesPowerManagementThenTheDisplay) {
    config().setScreenSaverReset();
    const auto calls = fake::platform().calls();
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0].name, "vconf_set_int");
    EXPECT_EQ(calls[0].args[0], "memory/pm/event-external");
    EXPECT_LT(std::stoi(calls[0].args[1]), 100);
    EXPECT_EQ(calls[1].text(), "display_change_state(1)");
}

TEST_F(SystemConfigTest, TheDeviceIsOutOfTheBoxWhenAllFourStatesAreOver) {
    leaveTheBox();
    EXPECT_TRUE(config().isOutOfBoxing());
    EXPECT_EQ(reads(), (Texts{"vconf_get_int(db/pwlock/factory_boot)", "vconf_get_int(db/pwlock/setup_wizard)",
                              "vconf_get_int(memory/refrigerator/OtnProgress)", "vconf_get_int(db/demo_mode)"}));
}

TEST_F(SystemConfigTest, TheDeviceIsInTheBoxWhileAnyOfTheFourStatesLasts) {
    for (const char* key :
         {"db/pwlock/factory_boot", "db/pwlock/setup_wizard", "memory/refrigerator/OtnProgress", "db/demo_mode"}) {
        leaveTheBox();
        fake::setSetting(key, 1);
        fake::platform().forgetCalls();
        EXPECT_FALSE(config().isOutOfBoxing()) << key;
        EXPECT_EQ(reads().back(), std::string("vconf_get_int(") + key + ")");
        EXPECT_TRUE(fake::platform().logs().empty());
    }
}

TEST_F(SystemConfigTest, TheDeviceIsInTheBoxWhenAnyOfTheFourStatesCannotBeRead) {
    Texts asked;
    for (const char* key :
         {"db/pwlock/factory_boot", "db/pwlock/setup_wizard", "memory/refrigerator/OtnProgress", "db/demo_mode"}) {
        fake::platform().forgetCalls();
        EXPECT_FALSE(config().isOutOfBoxing()) << key;
        asked.push_back(std::string("vconf_get_int(") + key + ")");
        EXPECT_EQ(reads(), asked) << "no later one is read";
        EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, std::string("Vconf Read Fail : ") + key));
        EXPECT_EQ(errors(), 1u);
        fake::setSetting(key, 0);
    }
    EXPECT_TRUE(config().isOutOfBoxing());
}

TEST_F(SystemConfigTest, TheConnectionTypeIsReadAndLogged) {
    fake::setConnection(CONNECTION_TYPE_WIFI);
    EXPECT_EQ(config().getConnectionState(), CONNECTION_TYPE_WIFI);
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "net connection state: 1"));
}

TEST_F(SystemConfigTest, AConnectionThatCannotBeReadIsDisconnected) {
    fake::platform().answer("connection_get_type", -5);
    EXPECT_EQ(config().getConnectionState(), CONNECTION_TYPE_DISCONNECTED);
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "Could not get net connection state: -5"));
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "net connection state: 0"));
}
