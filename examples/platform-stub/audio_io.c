/* SPDX-License-Identifier: Apache-2.0 */
/* There is no microphone. */
#include <audio_io.h>

int audio_in_create(int sample_rate, audio_channel_e channel, audio_sample_type_e type, audio_in_h* input) {
    return AUDIO_IO_ERROR_NOT_SUPPORTED;
}

int audio_in_destroy(audio_in_h input) {
    return AUDIO_IO_ERROR_NOT_SUPPORTED;
}

int audio_in_set_sound_stream_info(audio_in_h input, sound_stream_info_h stream_info) {
    return AUDIO_IO_ERROR_NOT_SUPPORTED;
}

int audio_in_prepare(audio_in_h input) {
    return AUDIO_IO_ERROR_NOT_SUPPORTED;
}

int audio_in_unprepare(audio_in_h input) {
    return AUDIO_IO_ERROR_NOT_SUPPORTED;
}

int audio_in_read(audio_in_h input, void* buffer, unsigned int length) {
    return AUDIO_IO_ERROR_NOT_SUPPORTED;
}
