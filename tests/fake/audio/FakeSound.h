// SPDX-License-Identifier: Apache-2.0
// Sound manager.
#pragma once

#include <sound_manager.h>

#include <string>
#include <vector>

namespace fake {

// The recording focus of the one stream. changeFocus also calls the product's callback on the calling thread.
void setFocus(sound_stream_focus_state_e state);
void changeFocus(sound_stream_focus_mask_e mask, sound_stream_focus_state_e state,
                 sound_stream_focus_change_reason_e reason, bool rightStream = true);
// The playback focus. changePlaybackFocus only calls the product's callback.
void setPlaybackFocus(sound_stream_focus_change_reason_e reason);
void changePlaybackFocus(sound_stream_focus_mask_e mask, sound_stream_focus_state_e state,
                         sound_stream_focus_change_reason_e reason);
// The level of the device. changeVolume also calls the product's callbacks.
void setVolumeLevel(sound_type_e type, int level);
void changeVolume(sound_type_e type, int level);
int volumeLevel(sound_type_e type);
std::vector<int> volumesSet();

}  // namespace fake
