// SPDX-License-Identifier: Apache-2.0
#include "Util/Languages.h"

#include "Util/Constants.h"

namespace Util {

namespace {

namespace Folder = Constants::LanguageFolder;

// Four European languages share one recognition model.
constexpr char EUROPEAN[] = "eu_EU";
constexpr Language LANGUAGES[] = {
    {OrvaneLang::KO_KR, "ko_KR", Folder::KOREAN, "ko_KR"},   {OrvaneLang::EN_US, "en_US", Folder::AMERICAN, "en_US"},
    {OrvaneLang::EN_GB, "en_GB", Folder::BRITISH, EUROPEAN}, {OrvaneLang::ZH_CN, "zh_CN", Folder::AMERICAN, "zh_CN"},
    {OrvaneLang::DE_DE, "de_DE", Folder::GERMAN, EUROPEAN},  {OrvaneLang::IT_IT, "it_IT", Folder::ITALIAN, EUROPEAN},
    {OrvaneLang::FR_FR, "fr_FR", Folder::FRENCH, EUROPEAN}};
constexpr const Language& AMERICAN_ENGLISH = LANGUAGES[1];

const Language* findLocale(const std::string& locale) {
    for (const Language& language : LANGUAGES) {
        if (locale == language.locale) {
            return &language;
        }
    }
    return nullptr;
}

}  // namespace

const Language& languageOf(OrvaneLang lang) {
    for (const Language& language : LANGUAGES) {
        if (lang == language.lang) {
            return language;
        }
    }
    return AMERICAN_ENGLISH;
}

const Language& languageOfLocale(const std::string& locale) {
    const Language* found = findLocale(locale);
    return found != nullptr ? *found : AMERICAN_ENGLISH;
}

std::string recognitionModelOf(const std::string& locale) {
    const Language* found = findLocale(locale);
    return found != nullptr ? found->recognitionModel : locale;
}

}  // namespace Util
