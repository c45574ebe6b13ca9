// SPDX-License-Identifier: Apache-2.0
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
using Util::systemConfig;

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
    const std::string locale = systemConfig().getWidgetLangStr();
    systemConfig().setOrvaneLang(mVoiceControl->isSupportedLang(locale)
                                     ? Util::languageOfLocale(locale).lang
                                     : languageOfRegion(systemConfig().getSystemRegion()));
}

void Service::refreshLanguageSet() {
    refreshTrigger();
    mVoiceControl->setLanguage(systemConfig().getLangStr());
}

// No audio reaches the trigger that is being replaced.
void Service::refreshTrigger() {
    mRecorder->clearListener();
    destroy(mTrigger);
    initTrigger();
    mTrigger->start();
}

}  // namespace OrvaneDA
