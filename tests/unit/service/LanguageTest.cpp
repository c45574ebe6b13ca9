// SPDX-License-Identifier: Apache-2.0
#include "Controller/Trigger/vocon_4_10/WakeupAudioIn.h"
#include "service/ServiceFixture.h"

class LanguageTest : public ServiceTest {
protected:
    // The language that the service stores when it starts.
    int stored(const std::vector<std::string>& supported, const char* menu, const char* region) {
        fake::setSupportedLanguages(supported);
        fake::setSetting("db/menu_widget/language", std::string(menu));
        fake::setSetting("db/setting/region_code", std::string(region));
        create();
        return fake::setting("db/orvane/setting/lang");
    }
};

TEST_F(LanguageTest, ASupportedMenuLanguageIsUsedInAnyRegion) {
    EXPECT_EQ(stored({"fr_FR"}, "fr_FR.UTF-8", "US"), 6);
}

TEST_F(LanguageTest, EveryLanguageHasItsNumber) {
    const char* languages[] = {"ko_KR", "en_US", "en_GB", "zh_CN", "de_DE", "it_IT", "fr_FR"};
    for (int number = 0; number < 7; ++number) {
        EXPECT_EQ(stored({languages[number]}, languages[number], "ZZ"), number) << languages[number];
        restart();
    }
}

TEST_F(LanguageTest, KoreanIsUsedInAmerica) {
    EXPECT_EQ(stored({"ko_KR"}, "ko_KR.UTF-8", "US"), 0);
}

TEST_F(LanguageTest, UnsupportedFrenchBecomesBritishEnglishInEurope) {
    EXPECT_EQ(stored({"en_US"}, "fr_FR.UTF-8", "EU"), 2);
}

TEST_F(LanguageTest, AnUnsupportedLanguageBecomesBritishEnglishInAustralia) {
    EXPECT_EQ(stored({}, "xx_XX", "AU"), 2);
}

TEST_F(LanguageTest, AnUnsupportedLanguageBecomesKoreanInKorea) {
    EXPECT_EQ(stored({}, "xx_XX", "KR"), 0);
}

TEST_F(LanguageTest, AnUnsupportedLanguageBecomesAmericanEnglishInAnUnknownRegion) {
    EXPECT_EQ(stored({}, "xx_XX", "ZZ"), 1);
}

TEST_F(LanguageTest, AnUnlistedSupportedLanguageBecomesAmericanEnglish) {
    EXPECT_EQ(stored({"es_ES"}, "es_ES", "EU"), 1);
}

TEST_F(LanguageTest, AMenuLanguageThatMapsToTheStoredOneRebuildsNothing) {
    create();
    fake::changeSetting("db/menu_widget/language", std::string("xx_XX.UTF-8"));
    EXPECT_EQ(fake::setting("db/orvane/setting/lang"), 1);
    fake::changeSetting("db/orvane/setting/lang", 1);
    EXPECT_EQ(fake::platform().count("IWakeupCtx::Create"), 0u);
}

TEST_F(LanguageTest, AChangedMenuLanguageIsStored) {
    fake::setSupportedLanguages({"en_US", "it_IT"});
    create();
    fake::changeSetting("db/menu_widget/language", std::string("it_IT.UTF-8"));
    EXPECT_EQ(fake::platform().textsOf({"vconf_set"}), Texts{"vconf_set_int(db/orvane/setting/lang, 5)"});
}

// The service's own write notifies its listener too.
TEST_F(LanguageTest, AChangedMenuLanguageRebuildsTheTriggerAndSetsTheRecognizersLanguage) {
    fake::setSupportedLanguages({"en_US", "it_IT"});
    create();
    fake::changeSetting("db/menu_widget/language", std::string("it_IT.UTF-8"));
    EXPECT_EQ(fake::platform().textsOf({"vconf_set_int", "IWakeupCtx::I", "vc_setting_set"}),
              (Texts{"vconf_set_int(db/orvane/setting/lang, 5)",
                     "IWakeupCtx::Initialize(/data/voice/data/ITI/wakeup_quorbit/, vocon_config.json)",
                     "vc_setting_set_language(it_IT)"}));
}

TEST_F(LanguageTest, AnotherLanguageRebuildsTheTriggerAndThenSetsTheRecognizersLanguage) {
    create();
    fake::changeSetting("db/orvane/setting/lang", 4);
    EXPECT_EQ(fake::platform().textsOf({"IWakeupCtx", "vc_setting"}),
              (Texts{"IWakeupCtx::CancelListening()", "IWakeupCtx::Destroy()", "IWakeupCtx::Create()",
                     "IWakeupCtx::AttachListener()",
                     "IWakeupCtx::Initialize(/data/voice/data/GED/wakeup_quorbit/, vocon_config.json)",
                     "IWakeupCtx::AttachAudioIn()", "IWakeupCtx::StartListening()", "vc_setting_set_language(de_DE)"}));
    EXPECT_TRUE(fake::engineListens());
}

TEST_F(LanguageTest, AnotherWakeWordRebuildsTheTriggerOnly) {
    create();
    fake::changeSetting("db/orvane/setting/voice_wakeup_word", 1);
    EXPECT_EQ(fake::platform().textsOf({"IWakeupCtx::Initialize"}),
              Texts{"IWakeupCtx::Initialize(/data/voice/data/ENU/wakeup_vexal/, vocon_config.json)"});
    EXPECT_EQ(fake::platform().count("vc_setting_set_language"), 0u);
    EXPECT_TRUE(fake::engineListens());
}

TEST_F(LanguageTest, TheRecorderFeedsTheNewTrigger) {
    create();
    fake::changeSetting("db/orvane/setting/voice_wakeup_word", 1);
    EXPECT_TRUE(fake::platform().waitUntil([] {
        bool available = false;
        fake::engineAudioIn()->HasData(available);
        return available;
    }));
}

TEST_F(LanguageTest, TheRecorderDoesNotFeedAReplacedTrigger) {
    create();
    bool replaced = false;
    bool fed = false;
    // The old trigger's feed still exists when its engine is destroyed.
    fake::platform().onCall("IWakeupCtx::Destroy", [&](const fake::Call&) {
        auto& feed = dynamic_cast<OrvaneDA::WakeupAudioIn&>(*fake::engineAudioIn());
        feed.setEnabled(true);
        EXPECT_TRUE(fake::platform().waitFor("sse_read", fake::platform().count("sse_read") + 20));
        feed.HasData(fed);
        replaced = true;
    });
    fake::changeSetting("db/orvane/setting/voice_wakeup_word", 1);
    fake::platform().onCall("IWakeupCtx::Destroy", nullptr);
    EXPECT_TRUE(replaced);
    EXPECT_FALSE(fed);
}
