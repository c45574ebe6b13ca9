// SPDX-License-Identifier: Apache-2.0
// The environment of everything that runs on the appliance, and the files that it finds there: buses, activatable
// applications, the default viewer. Nothing of the person's session is reachable through it.
#pragma once

#include "appliance/Folder.h"

namespace sim {

inline constexpr char kUi[] = "org.tizen.orvane-da";
inline constexpr char kHomeScreen[] = "org.tizen.menu-screen";
inline constexpr char kViewer[] = "org.orvane.sim.viewer";
inline constexpr char kMusic[] = "org.orvane.sim.music";
inline constexpr char kBriefing[] = "org.orvane.sim.briefing";
inline constexpr char kAccount[] = ORVANE_ACCOUNT_SERVICE_ID;
inline constexpr char kNetwork[] = "org.freedesktop.NetworkManager";
inline constexpr const char* kRecipeApps[] = {"org.tizen.recipesvc", "org.tizen.webdatabaseserviceapp"};

inline constexpr char kMenuLanguage[] = "db/menu_widget/language";
inline constexpr char kWakeupWord[] = "db/orvane/setting/voice_wakeup_word";

// Sets this process's own environment, which its children inherit. Once a process, before it has threads.
void prepareEnvironment(const Folder& folder);

}  // namespace sim
