/* Speech capture library: one capture instance a process, kept inside. All return 0 on success. */
#pragma once

#include "audio_io.h"

#ifdef __cplusplus
extern "C" {
#endif

/* rate in Hz; channel of the source, folded into one; frames per read. */
int sse_create(int rate, audio_channel_e channel, audio_sample_type_e type, int frames);
int sse_init(void);
int sse_set_stream_info(sound_stream_info_h stream_info);
/* Starts and stops capture. */
int sse_prepare(void);
int sse_unprepare(void);
int sse_deinit(void);
int sse_destroy(void);
/* Blocks until `frames` frames arrive and fills frames * 2 bytes of buffer (one 16-bit channel). */
int sse_read(void* buffer, int frames);
/* Tells the library that a wake-up was heard, with its confidence level. */
int sse_trigger_wakeup_word_recording(int level);

#ifdef __cplusplus
}
#endif
