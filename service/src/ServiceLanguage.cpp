// Keeps the assistant's language in step with the device's menu language. The chain runs over the settings store: the
// menu language writes the assistant's, whose change rebuilds what depends on it; an unchanged value ends the chain.
#include <mutex>

#include "Controller/SRecorder.h"
#include "Controller/Trigger/vocon_4_10/Trigger.h"
#include "Controller/VoiceControl.h"
#include "Service.h"
#include "Util/SystemConfig.h"

namespace OrvaneDA {

namespace {

using Util::OrvaneLang;

Util::SystemConfig& config() {
    return *Util::Singleton<Util::SystemConfig>::getInstance();
}

OrvaneLang languageOfLocale(const std::string& locale) {
    static const struct {
        const char* locale;
        OrvaneLang lang;
    } LOCALES[] = {{"ko_KR", OrvaneLang::KO_KR}, {"en_US", OrvaneLang::EN_US}, {"en_GB", OrvaneLang::EN_GB},
                   {"zh_CN", OrvaneLang::ZH_CN}, {"de_DE", OrvaneLang::DE_DE}, {"it_IT", OrvaneLang::IT_IT},
                   {"fr_FR", OrvaneLang::FR_FR}};
    for (const auto& row : LOCALES) {
        if (locale == row.locale) {
            return row.lang;
        }
    }
    return OrvaneLang::EN_US;
}

OrvaneLang languageOfRegion(int region) {
    switch (region) {
        case Util::Region::EU:
        case Util::Region::AU:
            return OrvaneLang::EN_GB;
        case Util::Region::KR:
            return OrvaneLang::KO_KR;
        default:
            return OrvaneLang::EN_US;
    }
}

}  // namespace

void Service::setOrvaneLang() {
    const std::string locale = config().getWidgetLangStr();
    config().setOrvaneLang(mVoiceControl->isSupportedLang(locale) ? languageOfLocale(locale)
                                                                  : languageOfRegion(config().getSystemRegion()));
}

void Service::refreshLanguageSet() {
    refreshTrigger();
    mVoiceControl->setLanguage(config().getLangStr());
}

// No audio reaches the trigger that is being replaced.
void Service::refreshTrigger() {
    mRecorder->clearListener();
    destroy(mTrigger);
    initTrigger();
    mTrigger->start();
}

}  // namespace OrvaneDA
