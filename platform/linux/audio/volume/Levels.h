// SPDX-License-Identifier: Apache-2.0
// The volumes of the sound types as the sound server keeps them. Media is the default loudspeaker's volume, which
// volume keys and mixers move. The other types are the volumes that the server gives to all streams of a media role,
// present and future: notification is the role "event" (a desktop's "system sounds"), alarm "alarm", system "system".
#pragma once

#include <optional>

#include "sound_manager.h"

namespace audio {

// Whole steps from silence to the loudspeaker's full volume, for every type.
constexpr int kHighestLevel = 15;
constexpr sound_type_e kSoundTypes[] = {SOUND_TYPE_SYSTEM, SOUND_TYPE_NOTIFICATION, SOUND_TYPE_ALARM, SOUND_TYPE_MEDIA};

bool isSoundType(sound_type_e type);

// Both wait for the server. A muted type has level 0, and a role without a volume has the highest. Empty, or false,
// when there is no answer or the server keeps no volumes of roles; `late` is set when it is connected all the same.
std::optional<int> readLevel(sound_type_e type, bool* late = nullptr);
// Keeps the balance of the channels. Level 0 is a mute; every other level ends it.
bool writeLevel(sound_type_e type, int level);

}  // namespace audio
