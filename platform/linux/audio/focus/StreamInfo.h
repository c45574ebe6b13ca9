// SPDX-License-Identifier: Apache-2.0
// A sound stream as the sound manager's callers hold it.
#pragma once

#include <atomic>
#include <memory>

#include "audio/Registration.h"
#include "sound_manager.h"

struct sound_stream_info_s {
    sound_stream_type_e type;
    sound_stream_focus_state_changed_cb callback;  // may be null
    void* userData;
    std::atomic<bool> reacquires{false};
    audio::Registration registration;
};

namespace audio {

// Null when there is no such stream, or no more. Any thread.
std::shared_ptr<sound_stream_info_s> streamOf(sound_stream_info_h handle);

}  // namespace audio
