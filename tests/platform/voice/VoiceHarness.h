// SPDX-License-Identifier: Apache-2.0
// The voice-control interface on a real main loop, with a microphone whose samples the test provides.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Speech.h"
#include "voice_control_manager.h"
#include "voice_control_setting.h"

// Samples for the microphone. Without any, a read waits, so that the test decides when time passes.
namespace microphone {
void speak(const speech::Samples& samples);
// Endless silence follows the samples so far.
void fallSilent();
void breakDown();  // every read fails
void disappear();  // it cannot be opened
void reset();
bool isOpen();
int opened();  // how often
}  // namespace microphone

// Sets the data directory of the program.
void setDataRoot(const std::string& path);

// One event of the voice interface, as text: "service 1->2", "partial open the", "final ...", "result <text>",
// "rejected", "error -905", "speech", "state 1->2", "language en_US->en_GB".
using Events = std::vector<std::string>;

class VoiceHarness {
public:
    VoiceHarness();
    ~VoiceHarness();

    // Initializes, prepares, and loads the installed sentences; false if the manager does not become ready.
    bool makeReady();
    void setCallbacks();
    bool runUntil(const std::function<bool()>& condition);
    bool runUntilEvent(const std::string& event, int times = 1);
    // Runs the main loop until it has handled everything posted so far.
    void settle();
    int count(const std::string& event) const;
    std::string firstWith(const std::string& prefix) const;
    std::string errorMessage() const;

    Events events;
    std::vector<std::string> jsons;  // of the results' first commands
    std::vector<int> pids;           // of the last result's commands
    std::function<bool(vc_cmd_list_h list)> inResult;
    std::function<void(const std::string& event)> onEvent;

private:
    void note(const std::string& event);
    static void onState(vc_state_e before, vc_state_e now, void* self) noexcept;
    static void onServiceState(vc_service_state_e before, vc_service_state_e now, void* self) noexcept;
    static bool onResult(vc_result_event_e event, vc_cmd_list_h list, const char* text, const char*,
                         void* self) noexcept;
    static void onPreResult(vc_pre_result_event_e event, const char* text, void* self) noexcept;
    static void onError(vc_error_e reason, void* self) noexcept;
    static void onSpeech(void* self) noexcept;
    static void onLanguage(const char* before, const char* now, void* self) noexcept;
};
