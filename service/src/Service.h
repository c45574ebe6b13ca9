// SPDX-License-Identifier: Apache-2.0
// The object that owns every module, reports to the UI application, and carries out its requests.
// Everything runs on the main loop, except triggerShot(), which runs on the process-wide async worker.
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

    // Lifecycle.
    bool onCreate();
    void onAppControl(app_control_h& request);
    void onTerminate();
    void initModule();
    void initTrigger();

    // Returns the result of sending, which does not wait for the UI.
    int sendStateToUI(const ClientState& state, const ErrorType& error);

    void startRecognition(VoiceStartMode mode, std::string volume);
    void stopRecognition();
    void cancelRecognition();

    // The menu's language determines the assistant's language. A change of the assistant's language rebuilds the
    // trigger and sets the recognizer's language.
    void setOrvaneLang();
    void refreshLanguageSet();
    void refreshTrigger();

    // The volume file reports the recorder's level to the UI. The timer checks the level every 20 ms; a refresh writes
    // the file only if the level has changed.
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
    void micStateChanged();
    void connectionStateChanged();
    bool isRecognizing() const;
    void fail(const ErrorType& error);
    void triggerShot(int level);
    void wakeUi();
    // Clears the pointer with the mutex held, and destroys the module without it, because a module's destructor may
    // wait for the async worker, which may wait for the mutex.
    template <typename Module>
    void destroy(Module*& module) {
        Module* old = nullptr;
        {
            std::lock_guard<std::mutex> lock(mModulesMutex);
            std::swap(old, module);
        }
        delete old;
    }

    Ecore_Timer* mVolumeTimer = nullptr;
    ClientState mState = ClientState::Unknown;  // last sent to the UI
    // Last reported by the recognition module. The platform contract requires it; nothing reads it.
    ClientState mRecognitionState = ClientState::Ready;
    SRecorder* mRecorder = nullptr;
    Trigger* mTrigger = nullptr;
    VoiceControl* mVoiceControl = nullptr;
    ProfileRefresher* mProfileRefresher = nullptr;
    Util::MessagePort mUiPort;
    // Held by triggerShot() while it uses the recorder and the trigger, and by the main loop while it changes a pointer
    // to a module.
    std::mutex mModulesMutex;
};

}  // namespace OrvaneDA
