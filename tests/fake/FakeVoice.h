// SPDX-License-Identifier: Apache-2.0
// Voice-control manager, its settings and commands.
#pragma once

#include <voice_control_manager.h>

#include <optional>
#include <string>
#include <vector>

struct vc_cmd_s {
    std::string text;
    int pid = -1;
    std::optional<std::string> json;
};

struct vc_cmd_list_s {
    std::vector<vc_cmd_h> commands;
    size_t cursor = 0;
};

namespace fake {

void setVoiceEnabled(bool enabled);
void setSupportedLanguages(const std::vector<std::string>& languages);
void setVoiceErrorMessage(const std::string& message);
// The product's callbacks, as the manager would call them; false where none is set.
void voiceState(vc_state_e previous, vc_state_e current);
void serviceState(vc_service_state_e previous, vc_service_state_e current);
bool allResult(vc_result_event_e event, vc_cmd_list_s& list, const char* text);
void preResult(vc_pre_result_event_e event, const char* text);
void voiceError(vc_error_e reason);
void speechDetected();
void voiceEnabledChanged(bool enabled);
void voiceLanguageChanged(const char* previous, const char* current);
// Texts of the list that the product made last.
std::vector<std::string> commandTexts();
// Commands and lists that were made by calls and not destroyed.
int openCommands();
int openCommandLists();

}  // namespace fake
