// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace Util {

// Keys of the settings that the service reads and writes.
namespace VConfKey {
inline constexpr char MIC_STATE[] = "db/mic_key/status";
inline constexpr char FACTORY_BOOT[] = "db/pwlock/factory_boot";
inline constexpr char SETUP_WIZARD[] = "db/pwlock/setup_wizard";
inline constexpr char OTN_PROGRESS[] = "memory/refrigerator/OtnProgress";
inline constexpr char DEMO_MODE[] = "db/demo_mode";
inline constexpr char LANG[] = "db/orvane/setting/lang";
inline constexpr char WIDGET_LANG[] = "db/menu_widget/language";
inline constexpr char COUNTRY[] = "db/setting/country_code";
inline constexpr char REGION[] = "db/setting/region_code";
inline constexpr char VOICE_FEEDBACK[] = "db/orvane/setting/voice_feedback";
inline constexpr char VOICE_WAKEUP[] = "db/orvane/setting/voice_wakeup";
inline constexpr char VOICE_RESPONSE[] = "db/orvane/manager/response";
inline constexpr char VOICE_BOS_RESPONSE[] = "db/orvane/manager/bos_response";
inline constexpr char WAKEUP_WORD[] = "db/orvane/setting/voice_wakeup_word";
inline constexpr char SCREEN_SAVER_TIMEOUT[] = "db/pm/event-ss-wait-time";
inline constexpr char LCD_TIMEOUT[] = "db/setting/lcd_backlight_normal";
inline constexpr char PM_EXTERNAL_EVENT[] = "memory/pm/event-external";
}  // namespace VConfKey

}  // namespace Util
