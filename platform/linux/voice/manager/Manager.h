// SPDX-License-Identifier: Apache-2.0
// The state machine of the voice-control interface. Everything runs on the main loop, including all callbacks, which
// never run within a call of the interface.
//
// Other threads load the models, one thread per load, and run the utterances (Utterance.h). They post events to the
// main loop, which ignores the events of an utterance that has ended.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "Callbacks.h"
#include "ResultDelivery.h"
#include "Settings.h"
#include "Threads.h"
#include "process/Owner.h"
#include "status/Problems.h"
#include "status/Status.h"
#include "voice/Dialogue.h"
#include "voice/Engine.h"
#include "voice/Utterance.h"

namespace voice {

class Manager {
public:
    Manager();
    // Cancels the utterance and waits for the threads.
    ~Manager();
    Manager(const Manager&) = delete;
    Manager& operator=(const Manager&) = delete;

    Callbacks callbacks;

    // All return vc_error_e.
    int prepare();
    int setSentenceFile(const std::string& path);
    int setPrivateData(const std::string& key, const std::string& data);
    int setMode(vc_recognition_mode_e mode);
    int start();
    int stop();
    int cancel();
    int select(vc_cmd_list_h list) { return mDelivery.select(list); }

    const std::string& errorMessage() const { return mErrorMessage; }
    const Settings& settings() const { return mSettings; }

private:
    using Number = uint64_t;

    void post(std::function<void()> work);
    void postFor(Number utterance, std::function<void()> work);
    bool isCurrent(Number utterance) const { return mUtterance && mUtteranceNumber == utterance; }
    UtteranceEvents eventsFor(Number utterance);
    UtteranceSettings utteranceSettings() const;

    // `again`: replaces a recognizer that was lost.
    void load(bool again = false);
    void loaded(Number load, bool ok, bool again);
    void showProblem(const std::string& why);

    void setState(vc_state_e state);
    void setServiceState(vc_service_state_e state);
    void reportError(vc_error_e reason, const std::string& message);
    void fail(const std::string& what);
    void done(Number utterance, const std::string& text);
    void becomeReady();

    Settings& mSettings = process::shared<Settings>();
    status::Status& mStatus = process::shared<status::Status>();
    status::Problems& mProblems = process::shared<status::Problems>();
    std::shared_ptr<bool> mAlive = std::make_shared<bool>(true);  // false: posted work does nothing
    vc_state_e mState = VC_STATE_INITIALIZED;
    vc_service_state_e mServiceState = VC_SERVICE_STATE_NONE;
    vc_recognition_mode_e mMode = VC_RECOGNITION_MODE_STOP_BY_SILENCE;
    std::string mSentenceFile;
    std::string mErrorMessage;
    int mMediaVolume = 0;
    Dialogue mDialogue;
    ResultDelivery mDelivery;

    bool mPrepared = false;
    EngineFuture mEngine;  // from the most recent load
    Number mLastLoad = 0;

    std::shared_ptr<Utterance> mUtterance;  // null outside a recognition session
    EngineFuture mUtteranceEngine;
    Number mUtteranceNumber = 0;
    Threads mThreads;
};

}  // namespace voice
