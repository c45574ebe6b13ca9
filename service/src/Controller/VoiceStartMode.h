// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace OrvaneDA {

// How the UI asked for listening to begin.
enum class VoiceStartMode : int {
    Default = 0,
    PTT = 1,           // push to talk: the user ends the utterance
    ClearContext = 2,  // the dialogue before is forgotten
    Unnamed = 3,
};

// By exact name; any other text, an empty one too, gives Unnamed.
VoiceStartMode startModeOf(const std::string& name);
const char* TranslateStartModeToRecognitionMode(VoiceStartMode mode);  // "UNKNOWN" for Unnamed

}  // namespace OrvaneDA
