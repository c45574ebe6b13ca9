// SPDX-License-Identifier: Apache-2.0
#include "fake/voice/FakeVoice.h"
#include "voice/VoiceFixture.h"

using OrvaneDA::VoiceControl;
using VoiceLanguageTest = VoiceTest;

TEST_F(VoiceLanguageTest, SupportedLanguagesMatchExactly) {
    fake::setSupportedLanguages({"en_US", "fr_FR"});
    VoiceControl control;
    EXPECT_TRUE(control.isSupportedLang("fr_FR"));
    EXPECT_FALSE(control.isSupportedLang("fr_fr"));
    EXPECT_FALSE(control.isSupportedLang("ko_KR"));
}

TEST_F(VoiceLanguageTest, TheEngineReloadsOnlyForAnotherModel) {
    VoiceControl control;
    control.setLanguage("ko_KR");
    fake::platform().forgetCalls();
    EXPECT_TRUE(control.setLanguage("fr_FR"));
    EXPECT_TRUE(control.setLanguage("fr_FR"));
    EXPECT_TRUE(control.setLanguage("de_DE"));
    EXPECT_EQ(fake::platform().texts(),
              (Texts{"vc_setting_set_language(fr_FR)", "vc_mgr_set_private_data(Request, reloadEngine)",
                     "vc_setting_set_language(fr_FR)", "vc_setting_set_language(de_DE)"}));
    control.setLanguage("en_US");
    EXPECT_EQ(fake::platform().count("vc_mgr_set_private_data"), 2u);
}

TEST_F(VoiceLanguageTest, FourEuropeanLanguagesShareOneModelAndEachOtherLanguageHasItsOwn) {
    VoiceControl control;
    const std::pair<const char*, bool> rows[] = {{"ko_KR", true},  {"en_GB", true}, {"de_DE", false}, {"it_IT", false},
                                                 {"fr_FR", false}, {"es_ES", true}, {"zh_CN", true},  {"en_US", true},
                                                 {"en_US", false}, {"it_IT", true}, {"en_GB", false}, {"ko_KR", true}};
    control.setLanguage("xx_XX");
    for (const auto& [language, reloads] : rows) {
        fake::platform().forgetCalls();
        EXPECT_TRUE(control.setLanguage(language));
        EXPECT_EQ(fake::platform().count("vc_mgr_set_private_data"), reloads ? 1u : 0u) << language;
    }
}

TEST_F(VoiceLanguageTest, TheLastLanguageOutlivesTheObject) {
    { VoiceControl().setLanguage("ko_KR"); }
    VoiceControl control;
    fake::platform().forgetCalls();
    control.setLanguage("ko_KR");
    EXPECT_EQ(fake::platform().count("vc_mgr_set_private_data"), 0u);
}

TEST_F(VoiceLanguageTest, ARefusedLanguageIsLoggedWithTheErrorsName) {
    VoiceControl control;
    control.setLanguage("ko_KR");
    fake::platform().answerNext("vc_setting_set_language", VC_ERROR_INVALID_LANGUAGE);
    fake::platform().forgetCalls();
    EXPECT_FALSE(control.setLanguage("xx_XX"));
    EXPECT_TRUE(control.setLanguage("ko_KR"));
    EXPECT_EQ(fake::platform().count("vc_mgr_set_private_data"), 0u) << "the last language has not changed";
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "vc_setting_set_language: INVALID_LANGUAGE"));
}
