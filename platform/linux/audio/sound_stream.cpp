#include <algorithm>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

#include "audio/Focus.h"
#include "audio/SoundThread.h"
#include "audio/StreamInfo.h"

namespace audio {
namespace {

struct Streams {
    std::mutex mutex;
    std::vector<std::unique_ptr<sound_stream_info_s>> all;
};

Streams& streams() {
    static Streams* instance = new Streams;
    return *instance;
}

void waitForRunningCallback() {
    if (SoundThread::get().isCurrent()) {
        return;
    }
    std::mutex mutex;
    std::condition_variable changed;
    bool done = false;
    SoundThread::get().post([&] {
        std::lock_guard lock(mutex);
        done = true;
        changed.notify_one();
    });
    std::unique_lock lock(mutex);
    changed.wait(lock, [&] { return done; });
}

bool isMask(sound_stream_focus_mask_e mask) {
    return mask == SOUND_STREAM_FOCUS_FOR_PLAYBACK || mask == SOUND_STREAM_FOCUS_FOR_RECORDING;
}

}  // namespace

bool isStream(sound_stream_info_h stream) {
    std::lock_guard lock(streams().mutex);
    return std::any_of(streams().all.begin(), streams().all.end(),
                       [stream](const auto& each) { return each.get() == stream; });
}

}  // namespace audio

using audio::focusFor;
using audio::isStream;

int sound_manager_create_stream_information(sound_stream_type_e stream_type,
                                            sound_stream_focus_state_changed_cb callback, void* user_data,
                                            sound_stream_info_h* stream_info) {
    if (!stream_info) {
        return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    }
    auto stream = std::make_unique<sound_stream_info_s>();
    stream->type = stream_type;
    stream->callback = callback;
    stream->userData = user_data;
    *stream_info = stream.get();
    std::lock_guard lock(audio::streams().mutex);
    audio::streams().all.push_back(std::move(stream));
    return SOUND_MANAGER_ERROR_NONE;
}

int sound_manager_destroy_stream_information(sound_stream_info_h stream_info) {
    if (!isStream(stream_info)) {
        return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    }
    focusFor(SOUND_STREAM_FOCUS_FOR_PLAYBACK).forget(stream_info);
    focusFor(SOUND_STREAM_FOCUS_FOR_RECORDING).forget(stream_info);
    std::unique_ptr<sound_stream_info_s> last;
    {
        std::lock_guard lock(audio::streams().mutex);
        auto& all = audio::streams().all;
        const auto found = std::find_if(all.begin(), all.end(), [&](const auto& s) { return s.get() == stream_info; });
        if (found == all.end()) {
            return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
        }
        last = std::move(*found);
        all.erase(found);
    }
    audio::waitForRunningCallback();
    return SOUND_MANAGER_ERROR_NONE;
}

int sound_manager_set_focus_reacquisition(sound_stream_info_h stream_info, bool enable) {
    if (!isStream(stream_info)) {
        return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    }
    stream_info->reacquires = enable;
    return SOUND_MANAGER_ERROR_NONE;
}

int sound_manager_get_focus_state(sound_stream_info_h stream_info, sound_stream_focus_state_e* state_for_playback,
                                  sound_stream_focus_state_e* state_for_recording) {
    if (!isStream(stream_info)) {
        return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    }
    const auto state = [&](sound_stream_focus_mask_e mask) {
        return focusFor(mask).holds(stream_info) ? SOUND_STREAM_FOCUS_STATE_ACQUIRED
                                                 : SOUND_STREAM_FOCUS_STATE_RELEASED;
    };
    if (state_for_playback) {
        *state_for_playback = state(SOUND_STREAM_FOCUS_FOR_PLAYBACK);
    }
    if (state_for_recording) {
        *state_for_recording = state(SOUND_STREAM_FOCUS_FOR_RECORDING);
    }
    return SOUND_MANAGER_ERROR_NONE;
}

int sound_manager_acquire_focus(sound_stream_info_h stream_info, sound_stream_focus_mask_e focus_mask, int,
                                const char*) {
    return isStream(stream_info) && audio::isMask(focus_mask) ? focusFor(focus_mask).acquire(stream_info)
                                                              : SOUND_MANAGER_ERROR_INVALID_PARAMETER;
}

int sound_manager_release_focus(sound_stream_info_h stream_info, sound_stream_focus_mask_e focus_mask, int,
                                const char*) {
    return isStream(stream_info) && audio::isMask(focus_mask) ? focusFor(focus_mask).release(stream_info)
                                                              : SOUND_MANAGER_ERROR_INVALID_PARAMETER;
}
