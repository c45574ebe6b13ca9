// SPDX-License-Identifier: Apache-2.0
// The object that owns every module, reports to the UI application, and carries out its requests.
// Everything runs on the main loop, except triggerShot(), which runs on the process-wide async worker. onTerminate()
// destroys the modules.
#pragma once

#include <Ecore.h>
#include <app_control.h>

#include <memory>
#include <mutex>
#include <string>

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
    virtual ~Service();

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

    // The modules that a wake-word detection uses. The worker shares them during a detection, because it may still wait
    // for the display when the service is destroyed.
    struct WakeupModules {
        // Held by the worker while it calls a module, and by the main loop while it changes a pointer. A thread that
        // holds it must not wait for another process.
        std::mutex mutex;
        std::unique_ptr<SRecorder> recorder;
        std::unique_ptr<Trigger> trigger;
    };
    static void triggerShot(WakeupModules& modules, int level);
    static void wakeUi(WakeupModules& modules);
    // Clears the pointer with the mutex held, and destroys the module without it, because a module's destructor may
    // wait for a thread.
    template <typename Module>
    void destroy(std::unique_ptr<Module>& module) {
        std::unique_ptr<Module> old;
        {
            std::lock_guard<std::mutex> lock(mModules->mutex);
            old.swap(module);
        }
    }

    // Not a real level, so the first refresh always writes.
    static constexpr int NO_LEVEL = 987654321;
    static inline int sLastWrittenLevel = NO_LEVEL;  // the file outlives this object

    Ecore_Timer* mVolumeTimer = nullptr;
    ClientState mState = ClientState::Unknown;  // last sent to the UI
    // Last reported by the recognition module. Kept, although nothing reads it.
    ClientState mRecognitionState = ClientState::Ready;
    std::shared_ptr<WakeupModules> mModules;
    std::unique_ptr<VoiceControl> mVoiceControl;
    std::unique_ptr<ProfileRefresher> mProfileRefresher;
    Util::MessagePort mUiPort;
};

}  // namespace OrvaneDA
