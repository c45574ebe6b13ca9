#include "Controller/VoiceStartMode.h"

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
            return "Default";
        case VoiceStartMode::PTT:
            return "PTT";
        case VoiceStartMode::ClearContext:
            return "ClearContext";
        default:
            return "UNKNOWN";
    }
}

}  // namespace OrvaneDA
