// SPDX-License-Identifier: Apache-2.0
#include "Controller/VoiceStartMode.h"

#include "Util/Constants.h"

namespace OrvaneDA {

VoiceStartMode startModeOf(const std::string& name) {
    for (VoiceStartMode mode : {VoiceStartMode::Default, VoiceStartMode::PTT, VoiceStartMode::ClearContext}) {
        if (name == TranslateStartModeToRecognitionMode(mode)) {
            return mode;
        }
    }
    return VoiceStartMode::Unnamed;
}

const char* TranslateStartModeToRecognitionMode(VoiceStartMode mode) {
    switch (mode) {
        case VoiceStartMode::Default:
            return Constants::StartMode::DEFAULT;
        case VoiceStartMode::PTT:
            return Constants::StartMode::PTT;
        case VoiceStartMode::ClearContext:
            return Constants::StartMode::CLEAR_CONTEXT;
        default:
            return Constants::UNKNOWN;
    }
}

}  // namespace OrvaneDA
