// SPDX-License-Identifier: Apache-2.0
// The volumes of the sound types in the sound server. Media is the volume of the default loudspeaker, which volume keys
// and mixers change. Each other type is the volume that the server applies to all current and future streams of a media
// role: "event" for notification (the "system sounds" of a desktop), "alarm" for alarm, and "system" for system.
#pragma once

#include <optional>

#include "sound_manager.h"

namespace audio {

// The number of steps from silence to the loudspeaker's full volume, the same for every type.
constexpr int kHighestLevel = 15;
constexpr sound_type_e kSoundTypes[] = {SOUND_TYPE_SYSTEM, SOUND_TYPE_NOTIFICATION, SOUND_TYPE_ALARM, SOUND_TYPE_MEDIA};

bool isSoundType(sound_type_e type);

// Both wait for the server. A muted type has level 0, and a role without a volume has the highest level. Empty or false
// if the server does not answer or does not support role volumes; `late` is then true if it is still connected.
std::optional<int> readLevel(sound_type_e type, bool* late = nullptr);
// Keeps the balance of the channels. Level 0 mutes; any other level unmutes.
bool writeLevel(sound_type_e type, int level);

}  // namespace audio
