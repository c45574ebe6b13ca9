// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <memory>

#include "audio/Registration.h"
#include "sound_manager.h"

// A sound stream of a caller of the sound manager.
struct sound_stream_info_s {
    sound_stream_type_e type;
    sound_stream_focus_state_changed_cb callback;  // may be null
    void* userData;
    std::atomic<bool> reacquires{false};
    audio::Registration registration;
};

namespace audio {

// Null when there is no such stream, or it was destroyed. Any thread.
std::shared_ptr<sound_stream_info_s> streamOf(sound_stream_info_h handle);

}  // namespace audio
