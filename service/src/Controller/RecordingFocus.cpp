// SPDX-License-Identifier: Apache-2.0
#include "Controller/RecordingFocus.h"

namespace OrvaneDA {

bool holdsRecordingFocus(sound_stream_info_h stream, const Util::Caller& caller) {
    sound_stream_focus_state_e state = SOUND_STREAM_FOCUS_STATE_RELEASED;
    const int result = sound_manager_get_focus_state(stream, nullptr, &state);
    if (result != SOUND_MANAGER_ERROR_NONE) {
        LOGE_FOR(caller, "[Recorder ERROR] Fail to get focus state : %d", result);
    }
    return state == SOUND_STREAM_FOCUS_STATE_ACQUIRED;
}

bool acquireRecordingFocus(sound_stream_info_h stream, const Util::Caller& caller) {
    const int result =
        sound_manager_acquire_focus(stream, SOUND_STREAM_FOCUS_FOR_RECORDING, SOUND_BEHAVIOR_NONE, nullptr);
    if (result != SOUND_MANAGER_ERROR_NONE) {
        LOGE_FOR(caller, "[Recorder ERROR] Fail to acquire focus : %d", result);
    }
    return result == SOUND_MANAGER_ERROR_NONE;
}

void releaseRecordingFocus(sound_stream_info_h stream, const Util::Caller& caller) {
    const int result =
        sound_manager_release_focus(stream, SOUND_STREAM_FOCUS_FOR_RECORDING, SOUND_BEHAVIOR_NONE, nullptr);
    if (result != SOUND_MANAGER_ERROR_NONE) {
        LOGE_FOR(caller, "[Recorder ERROR] Fail to release focus :%d", result);
    }
}

}  // namespace OrvaneDA
