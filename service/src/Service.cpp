// SPDX-License-Identifier: Apache-2.0
#include "Service.h"

#include <app_manager.h>

#include "Controller/ProfileRefresher.h"
#include "Controller/SRecorderSSE.h"
#include "Controller/Trigger/vocon_4_10/WuWTrigger.h"
#include "Controller/VoiceControl.h"
#include "UiRequests.h"
#include "Util/AppControl.h"
#include "Util/Constants.h"
#include "Util/Log.h"
#include "Util/Singleton.h"
#include "Util/Sound/SoundStreamWatcher.h"
#include "Util/SystemConfig.h"

namespace OrvaneDA {

using Util::systemConfig;

Service::Service() : mModules(std::make_shared<WakeupModules>()) {
    mUiPort.setTarget(Constants::App::UI, Constants::Port::PARTIAL);
    UiRequests::get().prepare();
}

Service::~Service() = default;

bool Service::onCreate() {
    LOGI("Service::onCreate");
    initModule();
    addListeners();
    refreshVolumeFile();
    // Notifies a UI that is already open that the service has restarted.
    bool running = false;
    app_manager_is_running(Constants::App::UI, &running);
    if (running) {
        sendStateToUI(ClientState::Error, ErrorType::ServerCrashed);
    }
    return true;
}

void Service::addListeners() {
    systemConfig().addWidgetLangStateChangedListener([this](void*) { setOrvaneLang(); }, nullptr);
    systemConfig().addLangStateChangedListener([this](void*) { refreshLanguageSet(); }, nullptr);
    systemConfig().addMicStateChangedListener([this](void*) { micStateChanged(); }, nullptr);
    systemConfig().addConnectionStateChangedListener([this](void*) { connectionStateChanged(); }, nullptr);
    systemConfig().addVoiceWakeupWordChangedListener([this](void*) { refreshTrigger(); }, nullptr);
}

void Service::initModule() {
    LOGI("Service::initModule");
    mVoiceControl = std::make_unique<VoiceControl>();
    mProfileRefresher = std::make_unique<ProfileRefresher>();
    mModules->recorder = std::make_unique<SRecorderSSE>();
    initTrigger();
    installCallbacks();
    setOrvaneLang();
    mVoiceControl->setLanguage(systemConfig().getLangStr());
    mModules->recorder->startRecord();
    mModules->trigger->start();
}

void Service::initTrigger() {
    LOGD("");
    auto trigger = std::make_unique<WuWTrigger>();
    trigger->setCallback([weak = std::weak_ptr<WakeupModules>(mModules)](int level) {
        if (const auto modules = weak.lock()) {
            triggerShot(*modules, level);
        }
    });
    mModules->recorder->addListener(trigger->getSRecordListener());
    std::lock_guard<std::mutex> lock(mModules->mutex);
    mModules->trigger = std::move(trigger);
}

void Service::installCallbacks() {
    mVoiceControl->setPartialResultCallback(
        [this](const std::string& text, bool isFinal) { sendPartialResult(text, isFinal); });
    mVoiceControl->setRecognitionStateCallback(
        [this](const ClientState& state, const ErrorType&) { recognitionStateChanged(state); });
    mVoiceControl->setStateCallback(
        [this](const ClientState& state, const ErrorType& error) { reportState(state, error); });
}

// The trigger does not listen for the wake word during recording and processing.
void Service::recognitionStateChanged(const ClientState& state) {
    mRecognitionState = state;
    if (state == ClientState::Recording) {
        startTimerVolumeSender();
    } else {
        stopTimerVolumeSender();
    }
    Trigger* trigger = mModules->trigger.get();
    if (trigger == nullptr) {
        return;
    }
    if (state == ClientState::Recording || state == ClientState::Processing) {
        trigger->stop();
    } else {
        trigger->start();
    }
}

void Service::triggerShot(WakeupModules& modules, int level) {
    LOGD("Trigger Shot!");
    {
        std::lock_guard<std::mutex> lock(modules.mutex);
        if (auto* recorder = dynamic_cast<SRecorderSSE*>(modules.recorder.get())) {
            recorder->debugTriggerShot(level);
        }
    }
    wakeUi(modules);
    std::lock_guard<std::mutex> lock(modules.mutex);
    if (modules.trigger != nullptr) {
        modules.trigger->start();
    }
}

// Reading the settings and waking the display may block, so this function locks the modules only to queue the request.
// If there is no recorder, the service has ended.
void Service::wakeUi(WakeupModules& modules) {
    if (!systemConfig().isOutOfBoxing() || systemConfig().getMicState() == 0) {
        return;
    }
    systemConfig().setLcdTimeout(systemConfig().getLcdTimeout());
    systemConfig().setScreenSaverReset();
    std::lock_guard<std::mutex> lock(modules.mutex);
    if (modules.recorder != nullptr) {
        Util::AppControl::performAppControl(UiRequests::get().triggerShot);
    }
}

void Service::onTerminate() {
    LOGI("Service::onTerminate");
    stopTimerVolumeSender();
    mProfileRefresher.reset();
    mVoiceControl.reset();
    destroy(mModules->recorder);
    destroy(mModules->trigger);
    Util::Singleton<Util::SystemConfig>::destroy();
    Util::Singleton<Util::SoundStreamWatcher>::destroy();
}

}  // namespace OrvaneDA
