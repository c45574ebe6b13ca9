// SPDX-License-Identifier: Apache-2.0
#include "appliance/environment/FactorySettings.h"

#include "appliance/Names.h"
#include "shared/Settings.h"

namespace sim {

void writeFactorySettings() {
    for (const char* key :
         {"db/pwlock/factory_boot", "db/pwlock/setup_wizard", "memory/refrigerator/OtnProgress", "db/demo_mode"}) {
        settings::set(key, 0);
    }
    settings::set(kMicrophone, 1);
    settings::set(kAssistantLanguage, 1);
    settings::set(kWakeWord, 0);
    settings::set("db/orvane/setting/voice_feedback", true);
    settings::set("db/orvane/setting/voice_wakeup", true);
    settings::set(kReadyAcknowledged, false);
    settings::set("db/orvane/manager/bos_response", false);
    settings::set(kMenuLanguage, "en_US.UTF-8");
    settings::set("db/setting/country_code", "US");
    settings::set(kRegion, "US");
    settings::set("db/pm/event-ss-wait-time", 300);
    settings::set("db/setting/lcd_backlight_normal", 60);
}

}  // namespace sim
