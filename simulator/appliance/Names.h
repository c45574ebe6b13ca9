// SPDX-License-Identifier: Apache-2.0
// Application ids and settings of the appliance.
#pragma once

namespace sim {

inline constexpr char kUi[] = "org.tizen.orvane-da";
inline constexpr char kHomeScreen[] = "org.tizen.menu-screen";
inline constexpr char kViewer[] = "org.orvane.sim.viewer";
inline constexpr char kMusic[] = "org.orvane.sim.music";
inline constexpr char kBriefing[] = "org.orvane.sim.briefing";
inline constexpr char kAccount[] = ORVANE_ACCOUNT_SERVICE_ID;
inline constexpr char kNetwork[] = "org.freedesktop.NetworkManager";
inline constexpr const char* kRecipeApps[] = {"org.tizen.recipesvc", "org.tizen.webdatabaseserviceapp"};

inline constexpr char kMicrophone[] = "db/mic_key/status";
inline constexpr char kMenuLanguage[] = "db/menu_widget/language";
inline constexpr char kAssistantLanguage[] = "db/orvane/setting/lang";
inline constexpr char kRegion[] = "db/setting/region_code";
inline constexpr char kReadyAcknowledged[] = "db/orvane/manager/response";
inline constexpr char kWakeWord[] = "db/orvane/setting/voice_wakeup_word";

}  // namespace sim
