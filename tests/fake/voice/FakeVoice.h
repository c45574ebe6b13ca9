// SPDX-License-Identifier: Apache-2.0
// Voice-control manager and its settings.
#pragma once

#include <voice_control_manager.h>

#include <string>
#include <vector>

#include "fake/voice/FakeCommands.h"

namespace fake {

void setVoiceEnabled(bool enabled);
void setSupportedLanguages(const std::vector<std::string>& languages);
void setVoiceErrorMessage(const std::string& message);
// Call the product's callbacks, as the manager does.
void voiceState(vc_state_e previous, vc_state_e current);
void serviceState(vc_service_state_e previous, vc_service_state_e current);
bool allResult(vc_result_event_e event, vc_cmd_list_s& list, const char* text);
void preResult(vc_pre_result_event_e event, const char* text);
void voiceError(vc_error_e reason);
void speechDetected();
void voiceEnabledChanged(bool enabled);
void voiceLanguageChanged(const char* previous, const char* current);

}  // namespace fake
