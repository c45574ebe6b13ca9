// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <orvane_da_db.h>
#include <sound_manager.h>

#include <atomic>
#include <mutex>

#include "Util/Log.h"

namespace Util {

// Reports whether the media output is available: no media player has the playback focus, and no morning briefing plays.
// Any thread may create and use it.
class SoundStreamWatcher {
public:
    SoundStreamWatcher();
    virtual ~SoundStreamWatcher();
    SoundStreamWatcher(const SoundStreamWatcher&) = delete;
    SoundStreamWatcher& operator=(const SoundStreamWatcher&) = delete;

    bool isSoundStreamAvailable();

private:
    void readPlaybackFocus(const Caller& caller);
    bool isMorningBriefPlaying();
    static void _focus_state_watch_cb(int id, sound_stream_focus_mask_e mask, sound_stream_focus_state_e state,
                                      sound_stream_focus_change_reason_e reason, const char* extraInfo,
                                      void* watcher) noexcept;

    std::atomic<bool> mAvailable{false};  // no media player has the focus; written on the sound manager's thread
    int mWatchId = -1;
    vrd_manager_h mBriefingDb = nullptr;
    std::mutex mBriefingMutex;  // guards mBriefingDb
};

}  // namespace Util
