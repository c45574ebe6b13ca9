// SPDX-License-Identifier: Apache-2.0
#include "FocusWatches.h"

#include <utility>
#include <vector>

#include "RecordingFocusWatch.h"
#include "audio/SoundEvents.h"
#include "process/Owner.h"

namespace audio {

FocusWatches::FocusWatches() {
    process::shared<SoundEvents>().onPlayback([this] { return check(); });
}

int FocusWatches::add(sound_stream_focus_mask_e mask, sound_stream_focus_state_watch_cb callback, void* data) {
    if ((mask & SOUND_STREAM_FOCUS_FOR_PLAYBACK) != 0) {
        learn();
    }
    if ((mask & SOUND_STREAM_FOCUS_FOR_RECORDING) != 0) {
        process::shared<RecordingFocusWatch>();
    }
    auto watch = std::make_shared<Watch>();
    watch->mask = mask;
    watch->callback = callback;
    watch->data = data;
    const std::lock_guard lock(mMutex);
    mWatches.emplace(++mLastId, std::move(watch));
    return mLastId;
}

bool FocusWatches::remove(int id) {
    std::shared_ptr<Watch> watch;
    {
        const std::lock_guard lock(mMutex);
        const auto found = mWatches.find(id);
        if (found == mWatches.end()) {
            return false;
        }
        watch = found->second;
        mWatches.erase(found);
    }
    watch->registration.end();
    return true;
}

// Streams that already play when the first watch is added do not count as a change.
void FocusWatches::learn() {
    bool late = false;
    const auto now = whatPlays(&late);
    const std::lock_guard lock(mMutex);
    if (!mPlaying && !late) {
        mPlaying = now.value_or(Playing());
    }
}

// Without a server, nothing plays. If the server is only slow, the query is repeated.
bool FocusWatches::check() {
    bool late = false;
    const Playing now = whatPlays(&late).value_or(Playing());
    if (late) {
        return false;
    }
    std::optional<Playing> before;
    {
        const std::lock_guard lock(mMutex);
        before = std::exchange(mPlaying, now);
    }
    if (before) {
        reportChanges(*before, now);
    }
    return true;
}

void FocusWatches::reportChanges(const Playing& before, const Playing& now) {
    for (const auto& [reason, name] : before) {
        if (now.count(reason) == 0) {
            report(SOUND_STREAM_FOCUS_FOR_PLAYBACK, SOUND_STREAM_FOCUS_STATE_RELEASED, reason, name);
        }
    }
    for (const auto& [reason, name] : now) {
        if (before.count(reason) == 0) {
            report(SOUND_STREAM_FOCUS_FOR_PLAYBACK, SOUND_STREAM_FOCUS_STATE_ACQUIRED, reason, name);
        }
    }
}

void FocusWatches::report(sound_stream_focus_mask_e mask, sound_stream_focus_state_e state,
                          sound_stream_focus_change_reason_e reason, const std::string& info) {
    std::vector<std::pair<int, std::shared_ptr<Watch>>> watches;
    {
        const std::lock_guard lock(mMutex);
        watches.assign(mWatches.begin(), mWatches.end());
    }
    for (const auto& entry : watches) {
        const int id = entry.first;
        Watch& watch = *entry.second;
        if ((watch.mask & mask) != 0) {
            watch.registration.call([&] { watch.callback(id, mask, state, reason, info.c_str(), watch.data); });
        }
    }
}

}  // namespace audio
