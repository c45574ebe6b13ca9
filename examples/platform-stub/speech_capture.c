/* SPDX-License-Identifier: Apache-2.0 */
/* There is no microphone. */
#include <speech_capture.h>

int sse_create(int rate, audio_channel_e channel, audio_sample_type_e type, int frames) {
    return -1;
}

int sse_init(void) {
    return -1;
}

int sse_set_stream_info(sound_stream_info_h stream_info) {
    return -1;
}

int sse_prepare(void) {
    return -1;
}

int sse_unprepare(void) {
    return -1;
}

int sse_deinit(void) {
    return -1;
}

int sse_destroy(void) {
    return -1;
}

int sse_read(void* buffer, int frames) {
    return -1;
}

int sse_trigger_wakeup_word_recording(int level) {
    return -1;
}
