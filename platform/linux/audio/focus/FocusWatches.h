// SPDX-License-Identifier: Apache-2.0
// Who watches the focus, of whomever it is, and how the playback focus stands. Several applications may play at once;
// the playback focus is acquired for a reason when the first stream of that reason plays and released with the last.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>

#include "audio/Playing.h"
#include "audio/Registration.h"
#include "sound_manager.h"

namespace audio {

class FocusWatches {
public:
    // Lives until the process ends.
    static FocusWatches& get();

    // Any thread. `mask` may name both. Waits for the sound server, so that no change after it is missed. The watch's
    // id.
    int add(sound_stream_focus_mask_e mask, sound_stream_focus_state_watch_cb callback, void* data);
    // False when there is no such watch.
    bool remove(int id);

    // On the sound thread: tells the watches of this focus.
    void tell(sound_stream_focus_mask_e mask, sound_stream_focus_state_e state,
              sound_stream_focus_change_reason_e reason, const std::string& info);

private:
    struct Watch {
        int mask;
        sound_stream_focus_state_watch_cb callback;
        void* data;
        Registration registration;
    };

    FocusWatches();
    void learn();
    bool look();
    void tellChanges(const Playing& before, const Playing& now);

    std::mutex mMutex;
    std::map<int, std::shared_ptr<Watch>> mWatches;
    int mLastId = 0;
    std::optional<Playing> mPlaying;  // nothing: not known yet
};

}  // namespace audio
