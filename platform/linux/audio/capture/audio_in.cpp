// SPDX-License-Identifier: Apache-2.0
#include "Capture.h"
#include "audio_io.h"
#include "process/Guard.h"

using process::guarded;

struct audio_in_s {
    audio::Capture capture;
    explicit audio_in_s(const audio::Format& format) : capture(format) {}
};

int audio_in_create(int sample_rate, audio_channel_e channel, audio_sample_type_e type, audio_in_h* input) {
    const int fault = input ? audio::checkFormat(sample_rate, channel, type) : AUDIO_IO_ERROR_INVALID_PARAMETER;
    if (fault != AUDIO_IO_ERROR_NONE) {
        return fault;
    }
    return guarded(AUDIO_IO_ERROR_OUT_OF_MEMORY, __func__, [&] {
        *input = std::make_unique<audio_in_s>(audio::Format{sample_rate, channel}).release();
        return AUDIO_IO_ERROR_NONE;
    });
}

int audio_in_destroy(audio_in_h input) {
    if (!input) {
        return AUDIO_IO_ERROR_INVALID_PARAMETER;
    }
    return guarded(AUDIO_IO_ERROR_INVALID_STATE, __func__, [&] {
        const std::unique_ptr<audio_in_s> owner(input);
        owner->capture.unprepare();
        return AUDIO_IO_ERROR_NONE;
    });
}

// Does nothing, because the focus belongs to the stream information, not to the device.
int audio_in_set_sound_stream_info(audio_in_h input, sound_stream_info_h stream_info) {
    return input && stream_info ? AUDIO_IO_ERROR_NONE : AUDIO_IO_ERROR_INVALID_PARAMETER;
}

int audio_in_prepare(audio_in_h input) {
    if (!input) {
        return AUDIO_IO_ERROR_INVALID_PARAMETER;
    }
    return guarded(AUDIO_IO_ERROR_DEVICE_NOT_OPENED, __func__, [&] { return input->capture.prepare(); });
}

int audio_in_unprepare(audio_in_h input) {
    if (!input) {
        return AUDIO_IO_ERROR_INVALID_PARAMETER;
    }
    return guarded(AUDIO_IO_ERROR_INVALID_STATE, __func__, [&] { return input->capture.unprepare(); });
}

int audio_in_read(audio_in_h input, void* buffer, unsigned int length) {
    const unsigned int frame = input ? sizeof(int16_t) * input->capture.format().channels : 0;
    // A read may cover at most half a second of sound.
    if (!input || !buffer || length < frame ||
        length / frame > static_cast<unsigned>(input->capture.format().rate) / 2) {
        return AUDIO_IO_ERROR_INVALID_PARAMETER;
    }
    return guarded(AUDIO_IO_ERROR_DEVICE_NOT_OPENED, __func__, [&]() -> int {
        const unsigned int frames = length / frame;
        const int fault = input->capture.read(static_cast<int16_t*>(buffer), frames);
        return fault == AUDIO_IO_ERROR_NONE ? static_cast<int>(frames * frame) : fault;
    });
}
