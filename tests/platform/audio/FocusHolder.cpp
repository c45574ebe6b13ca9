// SPDX-License-Identifier: Apache-2.0
// Takes the recording focus for a stream of the given type and keeps it until the process ends. Prints the code when
// that fails.
#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

#include "sound_manager.h"

int main(int, char** arguments) {
    sound_stream_info_h stream = nullptr;
    sound_manager_create_stream_information(static_cast<sound_stream_type_e>(atoi(arguments[1])), nullptr, nullptr,
                                            &stream);
    sound_manager_set_focus_reacquisition(stream, true);
    for (int times = 0; times < 3; ++times) {
        const int result = sound_manager_acquire_focus(stream, SOUND_STREAM_FOCUS_FOR_RECORDING, 0, nullptr);
        if (result == SOUND_MANAGER_ERROR_NONE) {
            pause();
        }
        printf("acquire %d\n", result);
    }
    printf("release %d\n", sound_manager_release_focus(stream, SOUND_STREAM_FOCUS_FOR_RECORDING, 0, nullptr));
    printf("destroy %d\n", sound_manager_destroy_stream_information(stream));
}
