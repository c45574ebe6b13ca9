// SPDX-License-Identifier: Apache-2.0
// Sound manager and both audio inputs.
#pragma once

#include <sound_manager.h>

#include <string>
#include <vector>

namespace fake {

// Focus of the one stream; fires its callback on the calling thread.
void setFocus(sound_stream_focus_state_e state);
void changeFocus(sound_stream_focus_mask_e mask, sound_stream_focus_state_e state,
                 sound_stream_focus_change_reason_e reason, bool rightStream = true);
void setPlaybackFocus(sound_stream_focus_change_reason_e reason);
void changePlaybackFocus(sound_stream_focus_mask_e mask, sound_stream_focus_state_e state,
                         sound_stream_focus_change_reason_e reason);
// Level of the device; changeVolume tells the registered controllers too.
void setVolumeLevel(sound_type_e type, int level);
void changeVolume(sound_type_e type, int level);
int volumeLevel(sound_type_e type);
std::vector<int> volumesSet();

// What the next reads give: a block of samples, or a failure. After the last one reads give silence, a block each
// millisecond.
void queueSamples(const std::vector<short>& samples);
void queueReadResult(int result);

}  // namespace fake
