// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace Util {

// The assistant's language, as stored in the settings store.
enum class OrvaneLang : int {
    KO_KR = 0,
    EN_US = 1,
    EN_GB = 2,
    ZH_CN = 3,
    DE_DE = 4,
    IT_IT = 5,
    FR_FR = 6,
    RESERVED = 7,  // a valid stored value that means American English
};

// The names of one language in the product's modules.
struct Language {
    OrvaneLang lang;
    const char* locale;
    const char* wakeupFolder;      // the directory of the wake engine's data
    const char* recognitionModel;  // the name by which the recognition engine loads the model
};

// American English for an unlisted value or locale.
const Language& languageOf(OrvaneLang lang);
const Language& languageOfLocale(const std::string& locale);
// Returns an unlisted locale unchanged.
std::string recognitionModelOf(const std::string& locale);

}  // namespace Util
