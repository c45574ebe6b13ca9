// SPDX-License-Identifier: Apache-2.0
// Handles changes of the recorder's recording focus.
#include <iterator>

#include "Controller/SRecorder.h"
#include "Util/Log.h"

namespace OrvaneDA {

void SRecorder::ignoreFocusChanges() {
    std::lock_guard<std::mutex> lock(mFocusMutex);
    mIgnoreFocusChanges = true;
}

void SRecorder::_focus_state_changed_cb(sound_stream_info_h streamInfo, sound_stream_focus_mask_e mask,
                                        sound_stream_focus_state_e state, sound_stream_focus_change_reason_e reason,
                                        int, const char*, void* data) noexcept {
    auto& recorder = *static_cast<SRecorder*>(data);
    std::lock_guard<std::mutex> lock(recorder.mFocusMutex);
    if (recorder.mIgnoreFocusChanges) {
        return;
    }
    if (streamInfo != recorder.mStreamInfo) {
        LOGE("Invalid stream info handle");
        return;
    }
    LOGD("Sound Stream Focus State Chagned!");
    LOGD("Focus state changed to (%d) with reason(%s)", state, TranslateSoundStreamFocusChangeReason(reason));
    if (mask != SOUND_STREAM_FOCUS_FOR_RECORDING) {
        return;
    }
    if (recorder.mState == PREPARED && state == SOUND_STREAM_FOCUS_STATE_RELEASED) {
        LOGD("Focus released as interrupt");
        recorder.stopRecord();
        recorder._audio_unprepare();
    } else if (recorder.mState == INITIALIZED && state == SOUND_STREAM_FOCUS_STATE_ACQUIRED) {
        LOGD("Focus acquired as interrupt completed");
        recorder._audio_prepare();
        recorder.startRecord();
    }
}

const char* SRecorder::TranslateSoundStreamFocusChangeReason(sound_stream_focus_change_reason_e reason) {
    static constexpr const char* NAMES[] = {"SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_SYSTEM",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_ALARM",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_NOTIFICATION",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_EMERGENCY",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_VOICE_INFORMATION",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_VOICE_RECOGNITION",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_RINGTONE",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_VOIP",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_CALL",
                                            "SOUND_STREAM_FOCUS_CHANGED_BY_MEDIA_EXTERNAL_ONLY"};
    const auto index = static_cast<size_t>(reason);
    return index < std::size(NAMES) ? NAMES[index] : "Undefined reason code";
}

}  // namespace OrvaneDA
