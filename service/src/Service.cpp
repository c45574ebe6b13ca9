// SPDX-License-Identifier: Apache-2.0
#include "Service.h"

#include <app_manager.h>
#include <unistd.h>

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

namespace {

using Util::systemConfig;

constexpr int UI_ANSWER_POLLS = 10;
constexpr useconds_t UI_ANSWER_POLL_US = 100'000;

}  // namespace

Service::Service() {
    mUiPort.setTarget(Constants::App::UI, Constants::Port::PARTIAL);
    UiRequests::get().prepare();
}

bool Service::onCreate() {
    LOGI("Service::onCreate");
    initModule();
    addListeners();
    refreshVolumeFile();
    // A UI that is already open learns that the service has started again.
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
    systemConfig().addMicStateChangedListener(
        [this](void*) {
            if (systemConfig().getMicState() == 0) {
                failIfRecognizing(ErrorType::MicOff);
            }
        },
        nullptr);
    systemConfig().addConnectionStateChangedListener(
        [this](void*) {
            if (systemConfig().getConnectionState() == CONNECTION_TYPE_DISCONNECTED) {
                failIfRecognizing(ErrorType::WifiOff);
            }
        },
        nullptr);
    systemConfig().addVoiceWakeupWordChangedListener([this](void*) { refreshTrigger(); }, nullptr);
}

bool Service::isRecognizing() const {
    return mState == ClientState::Recording || mState == ClientState::Processing;
}

void Service::failIfRecognizing(const ErrorType& error) {
    if (!isRecognizing()) {
        return;
    }
    if (error == ErrorType::WifiOff) {
        LOGD("send connection error");
    }
    sendStateToUI(ClientState::Error, error);
    cancelRecognition();
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

void Service::sendPartialResult(const std::string& text, bool isFinal) {
    LOGI("%s", text.c_str());
    Util::MessageData message;
    message.addData(Constants::Key::OPERATION, "partialText")
        .addData(Constants::Key::PARTIAL_RESULT, text)
        .addData(Constants::Key::IS_FINAL_RESULT, isFinal ? "True" : "False");
    mUiPort.sendMessage(message);
}

// The wake-up word is not listened for while the user is being recognised.
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

void Service::reportState(const ClientState& state, const ErrorType& error) {
    systemConfig().setVoiceResponseState(false);
    sendStateToUI(state, error);
    if (state == ClientState::Ready) {
        waitForUi();
    }
}

// Holds the main loop until the UI shows Ready, so that nothing overtakes what the user sees; gives up after a second.
void Service::waitForUi() {
    for (int poll = 0; poll < UI_ANSWER_POLLS; ++poll) {
        if (systemConfig().getVoiceResponseState()) {
            return;
        }
        usleep(UI_ANSWER_POLL_US);
    }
}

int Service::sendStateToUI(const ClientState& state, const ErrorType& error) {
    LOGI("%s", wireName(state));
    Util::AppControlData& request = UiRequests::get().stateChange;
    request.clearExtraData();
    request.addExtraData(Constants::Key::STATE_CHANGE, wireName(state));
    request.addExtraData(Constants::Key::ERROR_TYPE, wireName(error));
    const int result = Util::AppControl::performAppControl(request);
    mState = state;
    return result;
}

void Service::onAppControl(app_control_h& request) {
    LOGI("Service::onAppControl");
    Util::AppControlData data(request);
    const std::string& operation = data.getOperation();
    if (operation == Constants::Operation::START_VOICE_ENGINE) {
        const VoiceStartMode mode = startModeOf(data.getExtraData(Constants::Key::START_MODE));
        startRecognition(mode, data.getExtraData(Constants::Key::CURRENT_VOLUME));
    } else if (operation == Constants::Operation::STOP_VOICE_ENGINE) {
        stopRecognition();
    } else if (operation == Constants::Operation::CLOSE_VOICE_ENGINE) {
        cancelRecognition();
    } else if (operation == Constants::Operation::CANCEL_VOICE_ENGINE) {
        sendStateToUI(ClientState::StandBy, ErrorType::None);
        cancelRecognition();
    }
}

void Service::startRecognition(VoiceStartMode mode, std::string volume) {
    LOGI("");
    if (systemConfig().getMicState() == 0) {
        sendStateToUI(ClientState::Error, ErrorType::MicOff);
        return;
    }
    if (systemConfig().getConnectionState() == CONNECTION_TYPE_DISCONNECTED) {
        sendStateToUI(ClientState::Error, ErrorType::WifiOff);
        return;
    }
    if (mVoiceControl->startRecognition(mode, std::move(volume)) != 0) {
        sendStateToUI(ClientState::Error, ErrorType::ServiceNotReady);
    }
}

void Service::stopRecognition() {
    LOGI("");
    mVoiceControl->stopRecognition(true);
}

void Service::cancelRecognition() {
    LOGI("");
    mVoiceControl->cancelRecognition(true, false);
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
