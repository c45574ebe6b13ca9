// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "audio/Playing.h"
#include "audio/Registration.h"
#include "sound_manager.h"

namespace audio {

// The watches of both focuses, and the state of the playback focus. Several applications may play at once: the playback
// focus is acquired for a reason when the first stream with that reason starts, and released when the last one ends.
// Shared by the process.
class FocusWatches {
public:
    FocusWatches();

    // Any thread. `mask` may contain both focuses. Waits for the sound server, so that no later change is missed.
    // Returns the watch's id.
    int add(sound_stream_focus_mask_e mask, sound_stream_focus_state_watch_cb callback, void* data);
    // False if the watch does not exist.
    bool remove(int id);

    // Sound thread only. Calls the watches of this focus.
    void report(sound_stream_focus_mask_e mask, sound_stream_focus_state_e state,
                sound_stream_focus_change_reason_e reason, const std::string& info);

private:
    struct Watch {
        int mask = 0;
        sound_stream_focus_state_watch_cb callback = nullptr;
        void* data = nullptr;
        Registration registration;
    };

    void learn();
    bool check();
    void reportChanges(const Playing& before, const Playing& now);

    std::mutex mMutex;
    std::map<int, std::shared_ptr<Watch>> mWatches;
    int mLastId = 0;
    std::optional<Playing> mPlaying;  // empty: still unknown
};

}  // namespace audio
