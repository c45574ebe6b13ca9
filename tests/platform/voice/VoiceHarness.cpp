// SPDX-License-Identifier: Apache-2.0
#include "VoiceHarness.h"

#include <Ecore.h>

#include <algorithm>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>

#include "audio_io.h"
#include "mainloop/MainLoopPost.h"
#include "support/OpenBus.h"
#include "support/PrivateBus.h"
#include "tzplatform_config.h"

namespace {

constexpr double kWatchdogSeconds = 60;

std::mutex mutex;
std::condition_variable changed;
std::deque<int16_t> sound;
bool silent = false;
bool broken = false;
bool missing = false;
bool capturing = false;
int openings = 0;

std::string dataRoot = ORVANE_DATA;
std::thread::id mainThread;

}  // namespace

namespace microphone {

void change(const std::function<void()>& how) {
    std::lock_guard lock(mutex);
    how();
    changed.notify_all();
}
void speak(const speech::Samples& samples) {
    change([&] { sound.insert(sound.end(), samples.begin(), samples.end()); });
}
void fallSilent() {
    change([] { silent = true; });
}
void breakDown() {
    change([] { broken = true; });
}
void disappear() {
    change([] { missing = true; });
}
void reset() {
    change([] {
        sound.clear();
        silent = broken = missing = capturing = false;
        openings = 0;
    });
}
bool isOpen() {
    std::lock_guard lock(mutex);
    return capturing;
}
int opened() {
    std::lock_guard lock(mutex);
    return openings;
}

}  // namespace microphone

void setDataRoot(const std::string& path) {
    dataRoot = path;
}

struct audio_in_s {};

extern "C" {

const char* tzplatform_mkpath(enum tzplatform_variable, const char* path) {
    thread_local std::string absolute;
    absolute = dataRoot + "/" + path;
    return absolute.c_str();
}

int audio_in_create(int rate, audio_channel_e channel, audio_sample_type_e type, audio_in_h* input) {
    if (rate != 16000 || channel != AUDIO_CHANNEL_MONO || type != AUDIO_SAMPLE_TYPE_S16_LE) {
        return AUDIO_IO_ERROR_NOT_SUPPORTED;
    }
    *input = std::make_unique<audio_in_s>().release();
    return AUDIO_IO_ERROR_NONE;
}

int audio_in_destroy(audio_in_h input) {
    const std::unique_ptr<audio_in_s> owned(input);
    return AUDIO_IO_ERROR_NONE;
}

int audio_in_prepare(audio_in_h) {
    std::lock_guard lock(mutex);
    if (missing) {
        return AUDIO_IO_ERROR_DEVICE_NOT_OPENED;
    }
    capturing = true;
    ++openings;
    return AUDIO_IO_ERROR_NONE;
}

int audio_in_unprepare(audio_in_h) {
    std::lock_guard lock(mutex);
    capturing = false;
    changed.notify_all();
    return AUDIO_IO_ERROR_NONE;
}

int audio_in_read(audio_in_h, void* buffer, unsigned int length) {
    std::unique_lock lock(mutex);
    const std::size_t wanted = length / sizeof(int16_t);
    changed.wait(lock, [&] { return sound.size() >= wanted || silent || broken || !capturing; });
    if (broken || !capturing) {
        return AUDIO_IO_ERROR_INVALID_STATE;
    }
    sound.resize(std::max(sound.size(), wanted));
    auto* samples = static_cast<int16_t*>(buffer);
    std::copy_n(sound.begin(), wanted, samples);
    sound.erase(sound.begin(), sound.begin() + static_cast<long>(wanted));
    return static_cast<int>(length);
}
}

VoiceHarness::VoiceHarness() {
    privateBusAddress(openBus());
    ecore_app_no_system_modules();
    ecore_init();
    mainThread = std::this_thread::get_id();
    microphone::reset();
    setDataRoot(ORVANE_DATA);
}

VoiceHarness::~VoiceHarness() {
    vc_mgr_deinitialize();
    vc_setting_deinitialize();
    settle();
    ecore_shutdown();
}

bool VoiceHarness::makeReady() {
    vc_setting_initialize();
    if (vc_mgr_initialize() != VC_ERROR_NONE) {
        return false;
    }
    setCallbacks();
    vc_mgr_prepare();
    return runUntilEvent("service 0->1") &&
           vc_mgr_set_preloaded_commands_from_file(ORVANE_DATA "/voice/data/preloaded_commands.txt") == VC_ERROR_NONE;
}

void VoiceHarness::setCallbacks() {
    vc_mgr_set_state_changed_cb(onState, this);
    vc_mgr_set_service_state_changed_cb(onServiceState, this);
    vc_mgr_set_all_result_cb(onResult, this);
    vc_mgr_set_pre_result_cb(onPreResult, this);
    vc_mgr_set_error_cb(onError, this);
    vc_mgr_set_speech_detected_cb(onSpeech, this);
    vc_mgr_set_current_language_changed_cb(onLanguage, this);
}

bool VoiceHarness::runUntil(const std::function<bool()>& condition) {
    struct Wait {
        const std::function<bool()>& condition;
        double until;
    } wait{condition, ecore_loop_time_get() + kWatchdogSeconds};
    ecore_timer_add(
        0.002,
        [](void* data) noexcept -> Eina_Bool {
            auto* w = static_cast<Wait*>(data);
            if (!w->condition() && ecore_loop_time_get() < w->until) {
                return ECORE_CALLBACK_RENEW;
            }
            ecore_main_loop_quit();
            return ECORE_CALLBACK_CANCEL;
        },
        &wait);
    ecore_main_loop_begin();
    return condition();
}

bool VoiceHarness::runUntilEvent(const std::string& event, int times) {
    return runUntil([&] { return count(event) >= times; });
}

void VoiceHarness::settle() {
    bool done = false;
    postToMainLoop([&done] { done = true; });
    runUntil([&done] { return done; });
}

int VoiceHarness::count(const std::string& event) const {
    return static_cast<int>(std::count(events.begin(), events.end(), event));
}

std::string VoiceHarness::firstWith(const std::string& prefix) const {
    const auto found = std::find_if(events.begin(), events.end(),
                                    [&](const std::string& event) { return event.rfind(prefix, 0) == 0; });
    return found == events.end() ? "" : found->substr(prefix.size());
}

std::string VoiceHarness::errorMessage() const {
    char* text = nullptr;
    vc_mgr_get_error_message(&text);
    const std::unique_ptr<char, decltype(&std::free)> owned(text, &std::free);
    return text ? text : "<null>";
}

void VoiceHarness::note(const std::string& event) {
    events.push_back(std::this_thread::get_id() == mainThread ? event : event + " on the wrong thread");
    if (onEvent) {
        onEvent(event);
    }
}

void VoiceHarness::onState(vc_state_e before, vc_state_e now, void* self) noexcept {
    static_cast<VoiceHarness*>(self)->note("state " + std::to_string(before) + "->" + std::to_string(now));
}

void VoiceHarness::onServiceState(vc_service_state_e before, vc_service_state_e now, void* self) noexcept {
    static_cast<VoiceHarness*>(self)->note("service " + std::to_string(before) + "->" + std::to_string(now));
}

bool VoiceHarness::onResult(vc_result_event_e event, vc_cmd_list_h list, const char* text, const char*,
                            void* data) noexcept {
    auto* self = static_cast<VoiceHarness*>(data);
    self->note(event == VC_RESULT_EVENT_REJECTED ? "rejected" : std::string("result ") + text);
    self->pids.clear();
    for (int code = vc_cmd_list_first(list); code == VC_ERROR_NONE; code = vc_cmd_list_next(list)) {
        vc_cmd_h command = nullptr;
        char* json = nullptr;
        int pid = -1;
        vc_cmd_list_get_current(list, &command);
        vc_cmd_get_pid(command, &pid);
        vc_cmd_get_nlu_json(command, &json);
        self->pids.push_back(pid);
        self->jsons.emplace_back(json ? json : "<null>");
        std::free(json);
    }
    return self->inResult && self->inResult(list);
}

void VoiceHarness::onPreResult(vc_pre_result_event_e event, const char* text, void* self) noexcept {
    static_cast<VoiceHarness*>(self)->note((event == VC_PRE_RESULT_EVENT_FINAL ? "final " : "partial ") +
                                           std::string(text));
}

void VoiceHarness::onError(vc_error_e reason, void* self) noexcept {
    static_cast<VoiceHarness*>(self)->note("error " + std::to_string(reason));
}

void VoiceHarness::onSpeech(void* self) noexcept {
    static_cast<VoiceHarness*>(self)->note("speech");
}

void VoiceHarness::onLanguage(const char* before, const char* now, void* self) noexcept {
    static_cast<VoiceHarness*>(self)->note(std::string("language ") + before + "->" + now);
}
