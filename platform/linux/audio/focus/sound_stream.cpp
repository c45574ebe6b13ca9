// SPDX-License-Identifier: Apache-2.0
// Sound streams, and who of them holds a focus.
#include <map>
#include <memory>
#include <mutex>

#include "Focus.h"
#include "StreamInfo.h"

namespace audio {
namespace {

struct Streams {
    std::mutex mutex;
    std::map<sound_stream_info_h, std::shared_ptr<sound_stream_info_s>> all;
};

Streams& streams() {
    // Never destroyed: the sound thread still asks while the process ends.
    static Streams* instance = new Streams;
    return *instance;
}

}  // namespace

std::shared_ptr<sound_stream_info_s> streamOf(sound_stream_info_h handle) {
    std::lock_guard lock(streams().mutex);
    const auto found = streams().all.find(handle);
    return found == streams().all.end() ? nullptr : found->second;
}

}  // namespace audio

using audio::Focus;
using audio::streamOf;
using audio::streams;

namespace {

bool isMask(sound_stream_focus_mask_e mask) {
    return mask == SOUND_STREAM_FOCUS_FOR_PLAYBACK || mask == SOUND_STREAM_FOCUS_FOR_RECORDING;
}

}  // namespace

int sound_manager_create_stream_information(sound_stream_type_e stream_type,
                                            sound_stream_focus_state_changed_cb callback, void* user_data,
                                            sound_stream_info_h* stream_info) {
    if (!stream_info) {
        return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    }
    auto stream = std::make_shared<sound_stream_info_s>();
    stream->type = stream_type;
    stream->callback = callback;
    stream->userData = user_data;
    *stream_info = stream.get();
    std::lock_guard lock(streams().mutex);
    streams().all.emplace(stream.get(), stream);
    return SOUND_MANAGER_ERROR_NONE;
}

int sound_manager_destroy_stream_information(sound_stream_info_h stream_info) {
    const auto stream = streamOf(stream_info);
    if (!stream) {
        return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    }
    Focus::of(SOUND_STREAM_FOCUS_FOR_PLAYBACK).release(stream_info);
    Focus::of(SOUND_STREAM_FOCUS_FOR_RECORDING).release(stream_info);
    {
        std::lock_guard lock(streams().mutex);
        streams().all.erase(stream_info);
    }
    stream->registration.end();
    return SOUND_MANAGER_ERROR_NONE;
}

int sound_manager_set_focus_reacquisition(sound_stream_info_h stream_info, bool enable) {
    const auto stream = streamOf(stream_info);
    if (!stream) {
        return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    }
    stream->reacquires = enable;
    return SOUND_MANAGER_ERROR_NONE;
}

int sound_manager_get_focus_state(sound_stream_info_h stream_info, sound_stream_focus_state_e* state_for_playback,
                                  sound_stream_focus_state_e* state_for_recording) {
    if (!streamOf(stream_info)) {
        return SOUND_MANAGER_ERROR_INVALID_PARAMETER;
    }
    const auto state = [&](sound_stream_focus_mask_e mask) {
        return Focus::of(mask).holds(stream_info) ? SOUND_STREAM_FOCUS_STATE_ACQUIRED
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
    return streamOf(stream_info) && isMask(focus_mask) ? Focus::of(focus_mask).acquire(stream_info)
                                                       : SOUND_MANAGER_ERROR_INVALID_PARAMETER;
}

int sound_manager_release_focus(sound_stream_info_h stream_info, sound_stream_focus_mask_e focus_mask, int,
                                const char*) {
    return streamOf(stream_info) && isMask(focus_mask) ? Focus::of(focus_mask).release(stream_info)
                                                       : SOUND_MANAGER_ERROR_INVALID_PARAMETER;
}
