// A sound stream as the sound manager's callers hold it.
#pragma once

#include <atomic>

#include "sound_manager.h"

struct sound_stream_info_s {
    sound_stream_type_e type;
    sound_stream_focus_state_changed_cb callback;  // may be null; runs on SoundThread
    void* userData;
    std::atomic<bool> reacquires{false};
};

namespace audio {

// Null once the stream is destroyed. SoundThread asks before it calls back.
bool isStream(sound_stream_info_h stream);

}  // namespace audio
