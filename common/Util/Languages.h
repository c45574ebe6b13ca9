// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace Util {

// The assistant's language, as the settings store holds it.
enum class OrvaneLang : int {
    KO_KR = 0,
    EN_US = 1,
    EN_GB = 2,
    ZH_CN = 3,
    DE_DE = 4,
    IT_IT = 5,
    FR_FR = 6,
    RESERVED = 7,  // valid in storage; the language is American English
};

// The names of one language in the product's modules.
struct Language {
    OrvaneLang lang;
    const char* locale;
    const char* wakeupFolder;      // of the wake engine's data
    const char* recognitionModel;  // by which the recognition engine loads it
};

// American English if the value or the locale is not listed.
const Language& languageOf(OrvaneLang lang);
const Language& languageOfLocale(const std::string& locale);
// The locale itself if it is not listed.
std::string recognitionModelOf(const std::string& locale);

}  // namespace Util
