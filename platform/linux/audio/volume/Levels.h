// SPDX-License-Identifier: Apache-2.0
// The volumes of the sound types as the sound server keeps them. Media is the default loudspeaker's own volume, which
// volume keys and mixers move; the other types are the volumes that the server gives to all streams of a role, present
// and future: notification is the role "event" (a desktop's "system sounds"), alarm "alarm", system "system".
#pragma once

#include <optional>

#include "sound_manager.h"

namespace audio {

// Whole steps from silence to the loudspeaker's full volume, for every type.
constexpr int kHighestLevel = 15;
constexpr sound_type_e kSoundTypes[] = {SOUND_TYPE_SYSTEM, SOUND_TYPE_NOTIFICATION, SOUND_TYPE_ALARM, SOUND_TYPE_MEDIA};

bool isSoundType(sound_type_e type);

// Both wait for the server. What is muted has level 0; a role that nobody has set has the highest. Nothing, or false,
// when the server cannot be asked or does not keep volumes of roles; `late` tells that it is there, but slow.
std::optional<int> readLevel(sound_type_e type, bool* late = nullptr);
// Keeps the balance of the channels: level 0 is a mute, which the others end.
bool writeLevel(sound_type_e type, int level);

}  // namespace audio
