// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace OrvaneDA {

// How the UI starts a recognition session.
enum class VoiceStartMode : int {
    Default = 0,
    PTT = 1,           // push to talk: the person ends the utterance
    ClearContext = 2,  // the server discards the dialogue so far
    Unnamed = 3,
};

// Returns Unnamed unless `name` is exactly the name of a mode.
VoiceStartMode startModeOf(const std::string& name);
// "UNKNOWN" for Unnamed.
const char* TranslateStartModeToRecognitionMode(VoiceStartMode mode);

}  // namespace OrvaneDA
