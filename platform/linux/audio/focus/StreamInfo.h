// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <memory>

#include "audio/Registration.h"
#include "sound_manager.h"

// A sound stream that a caller created.
struct sound_stream_info_s {
    sound_stream_type_e type{};
    sound_stream_focus_state_changed_cb callback = nullptr;  // may be null
    void* userData = nullptr;
    std::atomic<bool> reacquires{false};
    audio::Registration registration;
};

namespace audio {

// Null if the stream does not exist or was destroyed. Any thread.
std::shared_ptr<sound_stream_info_s> streamOf(sound_stream_info_h handle);

}  // namespace audio
