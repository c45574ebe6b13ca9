// SPDX-License-Identifier: Apache-2.0
#include <map>
#include <memory>
#include <mutex>

#include "Focus.h"
#include "StreamInfo.h"
#include "process/Guard.h"

namespace audio {
namespace {

struct Streams {
    std::mutex mutex;
    std::map<sound_stream_info_h, std::shared_ptr<sound_stream_info_s>> all;
};

}  // namespace

std::shared_ptr<sound_stream_info_s> streamOf(sound_stream_info_h handle) {
    auto& streams = process::shared<Streams>();
    const std::lock_guard lock(streams.mutex);
    const auto found = streams.all.find(handle);
    return found == streams.all.end() ? nullptr : found->second;
}

namespace {

void add(const std::shared_ptr<sound_stream_info_s>& stream) {
    auto& streams = process::shared<Streams>();
    const std::lock_guard lock(streams.mutex);
    streams.all.emplace(stream.get(), stream);
}

void remove(sound_stream_info_h handle) {
    auto& streams = process::shared<Streams>();
    const std::lock_guard lock(streams.mutex);
    streams.all.erase(handle);
}

bool isMask(sound_stream_focus_mask_e mask) {
    return mask == SOUND_STREAM_FOCUS_FOR_PLAYBACK || mask == SOUND_STREAM_FOCUS_FOR_RECORDING;
}

sound_stream_focus_state_e stateOf(sound_stream_info_h stream, sound_stream_focus_mask_e mask) {
    return Focus::of(mask).holds(stream) ? SOUND_STREAM_FOCUS_STATE_ACQUIRED : SOUND_STREAM_FOCUS_STATE_RELEASED;
}

// Runs the action if the handle is a stream; `action` returns sound_manager_error_e.
template <typename Action>
int withStream(sound_stream_info_h handle, const char* function, const Action& action) {
    return process::guarded(SOUND_MANAGER_ERROR_INTERNAL, function, [&]() -> int {
        const auto stream = streamOf(handle);
        return stream ? action(*stream) : SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    });
}

}  // namespace
}  // namespace audio

using audio::Focus;

int sound_manager_create_stream_information(sound_stream_type_e stream_type,
                                            sound_stream_focus_state_changed_cb callback, void* user_data,
                                            sound_stream_info_h* stream_info) {
    if (!stream_info) {
        return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    }
    return process::guarded(SOUND_MANAGER_ERROR_INTERNAL, __func__, [&] {
        auto stream = std::make_shared<sound_stream_info_s>();
        stream->type = stream_type;
        stream->callback = callback;
        stream->userData = user_data;
        audio::add(stream);
        *stream_info = stream.get();
        return SOUND_MANAGER_ERROR_NONE;
    });
}

int sound_manager_destroy_stream_information(sound_stream_info_h stream_info) {
    return audio::withStream(stream_info, __func__, [&](sound_stream_info_s& stream) {
        Focus::of(SOUND_STREAM_FOCUS_FOR_PLAYBACK).release(stream_info);
        Focus::of(SOUND_STREAM_FOCUS_FOR_RECORDING).release(stream_info);
        audio::remove(stream_info);
        stream.registration.end();
        return SOUND_MANAGER_ERROR_NONE;
    });
}

int sound_manager_set_focus_reacquisition(sound_stream_info_h stream_info, bool enable) {
    return audio::withStream(stream_info, __func__, [&](sound_stream_info_s& stream) {
        stream.reacquires = enable;
        return SOUND_MANAGER_ERROR_NONE;
    });
}

int sound_manager_get_focus_state(sound_stream_info_h stream_info, sound_stream_focus_state_e* state_for_playback,
                                  sound_stream_focus_state_e* state_for_recording) {
    return audio::withStream(stream_info, __func__, [&](sound_stream_info_s&) {
        if (state_for_playback) {
            *state_for_playback = audio::stateOf(stream_info, SOUND_STREAM_FOCUS_FOR_PLAYBACK);
        }
        if (state_for_recording) {
            *state_for_recording = audio::stateOf(stream_info, SOUND_STREAM_FOCUS_FOR_RECORDING);
        }
        return SOUND_MANAGER_ERROR_NONE;
    });
}

int sound_manager_acquire_focus(sound_stream_info_h stream_info, sound_stream_focus_mask_e focus_mask, int,
                                const char*) {
    return audio::withStream(stream_info, __func__, [&](sound_stream_info_s&) -> int {
        return audio::isMask(focus_mask) ? Focus::of(focus_mask).acquire(stream_info)
                                         : SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    });
}

int sound_manager_release_focus(sound_stream_info_h stream_info, sound_stream_focus_mask_e focus_mask, int,
                                const char*) {
    return audio::withStream(stream_info, __func__, [&](sound_stream_info_s&) -> int {
        return audio::isMask(focus_mask) ? Focus::of(focus_mask).release(stream_info)
                                         : SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    });
}
