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

Service::Service() {
    mUiPort.setTarget(Constants::App::UI, Constants::Port::PARTIAL);
    UiRequests::get().prepare();
}

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
    mVoiceControl = new VoiceControl;
    mProfileRefresher = new ProfileRefresher;
    mRecorder = new SRecorderSSE;
    initTrigger();
    installCallbacks();
    setOrvaneLang();
    mVoiceControl->setLanguage(systemConfig().getLangStr());
    mRecorder->startRecord();
    mTrigger->start();
}

void Service::initTrigger() {
    LOGD("");
    auto* trigger = new WuWTrigger;
    {
        std::lock_guard<std::mutex> lock(mModulesMutex);
        mTrigger = trigger;
    }
    trigger->setCallback([this](int level) { triggerShot(level); });
    mRecorder->addListener(trigger->getSRecordListener());
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
    if (mTrigger == nullptr) {
        return;
    }
    if (state == ClientState::Recording || state == ClientState::Processing) {
        mTrigger->stop();
    } else {
        mTrigger->start();
    }
}

void Service::triggerShot(int level) {
    std::lock_guard<std::mutex> lock(mModulesMutex);
    LOGD("Trigger Shot!");
    if (auto* recorder = dynamic_cast<SRecorderSSE*>(mRecorder)) {
        recorder->debugTriggerShot(level);
    }
    wakeUi();
    if (mTrigger != nullptr) {
        mTrigger->start();
    }
}

void Service::wakeUi() {
    if (!systemConfig().isOutOfBoxing() || systemConfig().getMicState() == 0) {
        return;
    }
    systemConfig().setLcdTimeout(systemConfig().getLcdTimeout());
    systemConfig().setScreenSaverReset();
    Util::AppControl::performAppControl(UiRequests::get().triggerShot);
}

void Service::onTerminate() {
    LOGI("Service::onTerminate");
    stopTimerVolumeSender();
    destroy(mProfileRefresher);
    destroy(mVoiceControl);
    destroy(mRecorder);
    destroy(mTrigger);
    Util::Singleton<Util::SystemConfig>::destroy();
    Util::Singleton<Util::SoundStreamWatcher>::destroy();
}

}  // namespace OrvaneDA
