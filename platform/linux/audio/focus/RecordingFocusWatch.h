// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "audio/SoundThread.h"
#include "gio/Registration.h"
#include "sound_manager.h"

namespace audio {

class FocusWatches;

// Reports to the focus watches, on the sound thread, when an application takes the recording focus and when the last
// one releases it. Does nothing without a session bus. Shared by the process.
class RecordingFocusWatch {
public:
    RecordingFocusWatch();

private:
    void ownerChanged(const std::string& owner);

    FocusWatches& mWatches;
    SoundThread& mThread;
    // Sound thread only. The reason of the application that holds the focus, or held it last.
    sound_stream_focus_change_reason_e mReason = SOUND_STREAM_FOCUS_CHANGED_BY_SYSTEM;
    gio::Registration mOwnerChanged;
};

}  // namespace audio
