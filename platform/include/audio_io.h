// SPDX-License-Identifier: Apache-2.0
/* Audio input. */
#pragma once

#include "sound_manager.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct audio_in_s* audio_in_h;

typedef enum {
    AUDIO_CHANNEL_MONO = 1,
    AUDIO_CHANNEL_STEREO = 2,
} audio_channel_e;

typedef enum {
    AUDIO_SAMPLE_TYPE_U8 = 1,
    AUDIO_SAMPLE_TYPE_S16_LE = 2,
} audio_sample_type_e;

typedef enum {
    AUDIO_IO_ERROR_NONE = 0,
    AUDIO_IO_ERROR_OUT_OF_MEMORY = -12,
    AUDIO_IO_ERROR_INVALID_PARAMETER = -22,
    AUDIO_IO_ERROR_INVALID_STATE = -801,
    AUDIO_IO_ERROR_DEVICE_NOT_OPENED = -802, /* no sound server or no source */
    AUDIO_IO_ERROR_NOT_SUPPORTED = -803,
} audio_io_error_e;

/* One thread at a time may use a handle, except that audio_in_unprepare may end a read on another thread. All functions
 * return audio_io_error_e. */
int audio_in_create(int sample_rate, audio_channel_e channel, audio_sample_type_e type, audio_in_h* input);
int audio_in_destroy(audio_in_h input);
int audio_in_set_sound_stream_info(audio_in_h input, sound_stream_info_h stream_info);
/* Start and stop capture. */
int audio_in_prepare(audio_in_h input);
int audio_in_unprepare(audio_in_h input);
/* Blocks until samples arrive. Returns the number of bytes read, at most length, or a negative audio_io_error_e. */
int audio_in_read(audio_in_h input, void* buffer, unsigned int length);

#ifdef __cplusplus
}
#endif
