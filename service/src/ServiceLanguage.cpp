// SPDX-License-Identifier: Apache-2.0
// Keeps the assistant's language in sync with the language of the appliance's menu. A change of the menu's language
// writes the assistant's language to the settings store. If the stored value changes too, its listener rebuilds
// everything that depends on it.
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

// Removes the recorder's listener first, so that no audio reaches a trigger that is being destroyed.
void Service::refreshTrigger() {
    mModules->recorder->clearListener();
    destroy(mModules->trigger);
    initTrigger();
    mModules->trigger->start();
}

}  // namespace OrvaneDA
