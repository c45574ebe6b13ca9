// SPDX-License-Identifier: Apache-2.0
/* Speech capture library. It owns the only capture stream of the process. All functions return 0 on success. */
#pragma once

#include "audio_io.h"

#ifdef __cplusplus
extern "C" {
#endif

/* rate: in Hz. channel: the number of channels of the source, which the library mixes into one. frames: per read. */
int sse_create(int rate, audio_channel_e channel, audio_sample_type_e type, int frames);
int sse_init(void);
int sse_set_stream_info(sound_stream_info_h stream_info);
/* Start and stop capture. */
int sse_prepare(void);
int sse_unprepare(void);
int sse_deinit(void);
int sse_destroy(void);
/* Blocks until `frames` frames arrive, and writes frames * 2 bytes to the buffer (one 16-bit channel). */
int sse_read(void* buffer, int frames);
/* Reports a wake-word detection and its confidence level to the library. */
int sse_trigger_wakeup_word_recording(int level);

#ifdef __cplusplus
}
#endif
