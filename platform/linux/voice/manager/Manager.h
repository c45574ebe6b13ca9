// SPDX-License-Identifier: Apache-2.0
// The session with the recognizer, as the voice interface shows it. Everything here runs on the main loop, where all
// callbacks come too, never from within a call of the interface.
//
// Two kinds of threads work for it: one at a time loads models (its answer is a future that utterances wait for), and
// each utterance has its own (Session.h). What they have to say is posted to the main loop with the number of the
// utterance it belongs to, and dropped there when that one is over.
#pragma once

#include <cstdint>
#include <functional>
#include <future>
#include <memory>
#include <string>
#include <vector>

#include "Clients.h"
#include "voice/Dialogue.h"
#include "voice/Engine.h"
#include "voice/Session.h"
#include "voice_control_manager.h"

namespace voice {

// A callback of the interface with its user data.
template <typename Function>
struct Callback {
    Function function = nullptr;
    void* userData = nullptr;

    explicit operator bool() const { return function != nullptr; }
    template <typename... Arguments>
    auto operator()(Arguments... arguments) const {
        return function(arguments..., userData);
    }
};

struct Callbacks {
    Callback<vc_state_changed_cb> state;
    Callback<vc_mgr_service_state_changed_cb> serviceState;
    Callback<vc_mgr_all_result_cb> allResult;
    Callback<vc_mgr_pre_result_cb> preResult;
    Callback<vc_error_cb> error;
    Callback<vc_mgr_speech_detected_cb> speechDetected;
    Callback<vc_current_language_changed_cb> languageChanged;
};

class Manager {
public:
    Manager();
    // Ends an utterance and waits for the threads.
    ~Manager();
    Manager(const Manager&) = delete;
    Manager& operator=(const Manager&) = delete;

    Callbacks callbacks;

    // All return vc_error_e.
    int prepare();
    int setCommandFile(const std::string& path);
    int setPrivateData(const std::string& key, const std::string& data);
    int setMode(vc_recognition_mode_e mode);
    int start();
    int stop();
    int cancel();
    int select(vc_cmd_list_h list);

    const std::string& errorMessage() const { return mErrorMessage; }

private:
    using Number = uint64_t;  // of an utterance

    struct ResultCommands;

    void post(std::function<void()> work);
    void postFor(Number utterance, std::function<void()> work);
    SessionEvents eventsFor(Number utterance);
    SessionSettings sessionSettings() const;

    void load();
    void loaded(Number load, bool ok);
    void reap();

    void setState(vc_state_e state);
    void setServiceState(vc_service_state_e state);
    void recording(Number utterance);
    void report(vc_error_e reason, const std::string& message);
    void fail(const std::string& what);
    void done(Number utterance, const std::string& sentence);
    void reject();
    void deliver(Number utterance, const Intent& intent, const std::string& sentence);
    void becomeReady();

    std::shared_ptr<bool> mAlive = std::make_shared<bool>(true);  // false for what was posted and comes too late
    vc_state_e mState = VC_STATE_INITIALIZED;
    vc_service_state_e mServiceState = VC_SERVICE_STATE_NONE;
    vc_recognition_mode_e mMode = VC_RECOGNITION_MODE_STOP_BY_SILENCE;
    std::string mCommandFile;
    std::string mErrorMessage;
    int mMediaVolume = 0;
    Dialogue mDialogue;

    bool mPrepared = false;
    EngineFuture mEngine;
    Number mLastLoad = 0;

    std::shared_ptr<Session> mSession;  // null: no utterance
    EngineFuture mSessionEngine;
    Number mUtterance = 0;
    std::vector<std::future<void>> mThreads;

    // Within the all-result callback.
    bool mInResult = false;
    bool mSelected = false;
    std::vector<vc_cmd_h> mSelection;
};

}  // namespace voice
