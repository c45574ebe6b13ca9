// SPDX-License-Identifier: Apache-2.0
// The one object that owns every module, reports to the UI application and acts on its requests.
// Everything runs on the main loop, but for the wake-up callback, which runs on the process-wide async worker.
#pragma once

#include <Ecore.h>
#include <app_control.h>

#include <mutex>
#include <string>
#include <utility>

#include "ClientState.h"
#include "Controller/VoiceStartMode.h"
#include "Util/MessagePort.h"

namespace OrvaneDA {

class ProfileRefresher;
class SRecorder;
class Trigger;
class VoiceControl;

class Service {
public:
    Service();
    virtual ~Service() = default;
    Service(const Service&) = delete;
    Service& operator=(const Service&) = delete;

    // Life cycle.
    bool onCreate();
    void onAppControl(app_control_h& request);
    void onTerminate();
    void initModule();
    void initTrigger();

    // The send's result; never waits for the UI.
    int sendStateToUI(const ClientState& state, const ErrorType& error);

    void startRecognition(VoiceStartMode mode, std::string volume);
    void stopRecognition();
    void cancelRecognition();

    // Language: the menu's is mapped to the assistant's, whose change rebuilds recogniser and trigger.
    void setOrvaneLang();
    void refreshLanguageSet();
    void refreshTrigger();

    // Capture level: a file that the UI polls, rewritten at most 50 times a second and only on change.
    void startTimerVolumeSender();
    void stopTimerVolumeSender();
    void refreshVolumeFile();

private:
    void addListeners();
    void installCallbacks();
    void sendPartialResult(const std::string& text, bool isFinal);
    void recognitionStateChanged(const ClientState& state);
    void reportState(const ClientState& state, const ErrorType& error);
    void waitForUi();
    void failIfRecognizing(const ErrorType& error);
    bool isRecognizing() const;
    void triggerShot(int level);
    void wakeUi();
    // The pointer goes first and the object after, outside the lock: a module's destructor may wait for the async
    // worker.
    template <typename Module>
    void destroy(Module*& module) {
        Module* leaving = nullptr;
        {
            std::lock_guard<std::mutex> lock(mModulesMutex);
            std::swap(leaving, module);
        }
        delete leaving;
    }

    Ecore_Timer* mVolumeTimer = nullptr;
    ClientState mState = ClientState::Unknown;           // last sent to the UI
    ClientState mRecognitionState = ClientState::Ready;  // last reported by the recognition module
    SRecorder* mRecorder = nullptr;
    Trigger* mTrigger = nullptr;
    VoiceControl* mVoiceControl = nullptr;
    ProfileRefresher* mProfileRefresher = nullptr;
    Util::MessagePort mUiPort;
    // The async worker's callback holds it while it uses recorder and trigger; the main loop, while it changes the
    // pointers.
    std::mutex mModulesMutex;
};

}  // namespace OrvaneDA
