// SPDX-License-Identifier: Apache-2.0
#include "Manager.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "Command.h"
#include "Settings.h"
#include "dlog.h"
#include "mainloop/MainLoopPost.h"
#include "voice/Understanding.h"

namespace voice {

namespace {

// How far above the room's noise speech must be; with loud media more, so that a song is not taken for a person.
constexpr double kSpeechMarginDb = 9;
constexpr double kMediaMarginDb = 6;
constexpr int kLoudestMedia = 15;  // the media type's highest level

}  // namespace

// The result as a list of commands: one for each client, or one of the service's own.
struct Manager::ResultCommands {
    ResultCommands(std::vector<Client> to, const std::string& sentence, const std::string& json)
        : clients(std::move(to)), commands(std::max<std::size_t>(clients.size(), 1)) {
        for (std::size_t i = 0; i < commands.size(); ++i) {
            commands[i].text = sentence;
            commands[i].json = json;
            commands[i].pid = i < clients.size() ? clients[i].pid : getpid();
            list.commands.push_back(&commands[i]);
        }
    }

    std::vector<Client> clients;
    std::vector<vc_cmd_s> commands;
    vc_cmd_list_s list;
};

Manager::Manager() {
    serveClients();
    Settings::get().refresh();
    Settings::get().observe([this](const std::string& before, const std::string& now) {
        post([this, before, now] {
            if (callbacks.languageChanged) {
                callbacks.languageChanged(before.c_str(), now.c_str());
            }
        });
    });
}

Manager::~Manager() {
    *mAlive = false;
    Settings::get().observe(nullptr);
    if (mSession) {
        mSession->cancel();
    }
    mThreads.clear();  // waits
}

void Manager::post(std::function<void()> work) {
    postToMainLoop([alive = mAlive, work = std::move(work)] {
        if (*alive) {
            work();
        }
    });
}

void Manager::postFor(Number utterance, std::function<void()> work) {
    post([this, utterance, work = std::move(work)] {
        if (mSession && mUtterance == utterance) {
            work();
        }
    });
}

int Manager::prepare() {
    if (mPrepared) {
        return VC_ERROR_INVALID_STATE;
    }
    mPrepared = true;
    load();
    return VC_ERROR_NONE;
}

void Manager::load() {
    reap();
    if (!mSession) {
        mSessionEngine = {};  // the old models go before the new ones come
    }
    const Number number = ++mLastLoad;
    std::promise<std::shared_ptr<Engine>> answer;
    mEngine = answer.get_future().share();
    mThreads.push_back(std::async(std::launch::async, [this, number, language = Settings::get().current(),
                                                       file = mCommandFile, answer = std::move(answer)]() mutable {
        const speech::MemoryReturn memoryReturn;
        const auto engine = loadEngine(language, file);
        answer.set_value(engine);
        post([this, number, ok = engine != nullptr] { loaded(number, ok); });
    }));
}

void Manager::loaded(Number load, bool ok) {
    if (load != mLastLoad) {
        return;  // a newer one is on its way
    }
    if (!ok) {
        report(VC_ERROR_ENGINE_NOT_FOUND, "No speech recognizer");
        setState(VC_STATE_INITIALIZED);
        return;
    }
    setState(VC_STATE_READY);
    if (mServiceState == VC_SERVICE_STATE_NONE) {
        setServiceState(VC_SERVICE_STATE_READY);
    }
}

void Manager::reap() {
    const auto isOver = [](const std::future<void>& thread) {
        return thread.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    };
    mThreads.erase(std::remove_if(mThreads.begin(), mThreads.end(), isOver), mThreads.end());
}

int Manager::setCommandFile(const std::string& path) {
    if (access(path.c_str(), R_OK) != 0) {
        dlog_print(DLOG_ERROR, "orvane-voice", "cannot read %s", path.c_str());
        return VC_ERROR_IO_ERROR;
    }
    mCommandFile = path;
    if (mPrepared) {
        load();
    }
    return VC_ERROR_NONE;
}

int Manager::setPrivateData(const std::string& key, const std::string& data) {
    if (key == "MediaVolume") {
        mMediaVolume = std::clamp(std::atoi(data.c_str()), 0, kLoudestMedia);
        return VC_ERROR_NONE;
    }
    if (key == "Request" && data == "resetSession") {
        mDialogue.forget();
        return VC_ERROR_NONE;
    }
    if (key == "Request" && data == "reloadEngine") {
        if (mPrepared) {
            load();
        }
        return VC_ERROR_NONE;
    }
    return VC_ERROR_NOT_SUPPORTED;
}

int Manager::setMode(vc_recognition_mode_e mode) {
    if (mode != VC_RECOGNITION_MODE_STOP_BY_SILENCE && mode != VC_RECOGNITION_MODE_MANUAL) {
        return VC_ERROR_NOT_SUPPORTED;
    }
    mMode = mode;
    return VC_ERROR_NONE;
}

SessionSettings Manager::sessionSettings() const {
    return {mMode == VC_RECOGNITION_MODE_STOP_BY_SILENCE,
            kSpeechMarginDb + kMediaMarginDb * mMediaVolume / kLoudestMedia};
}

int Manager::start() {
    if (mState != VC_STATE_READY || mSession) {
        return VC_ERROR_INVALID_STATE;
    }
    reap();
    mErrorMessage.clear();
    mSessionEngine = mEngine;
    mSession = std::make_shared<Session>(mSessionEngine, sessionSettings(), eventsFor(++mUtterance));
    mThreads.push_back(std::async(std::launch::async, [session = mSession] { session->run(); }));
    return VC_ERROR_NONE;
}

SessionEvents Manager::eventsFor(Number utterance) {
    SessionEvents events;
    events.recording = [=] { postFor(utterance, [this] { setServiceState(VC_SERVICE_STATE_RECORDING); }); };
    events.speech = [=] {
        postFor(utterance, [this] {
            if (callbacks.speechDetected) {
                callbacks.speechDetected();
            }
        });
    };
    events.partial = [=](const std::string& text) {
        postFor(utterance, [this, text] {
            if (callbacks.preResult) {
                callbacks.preResult(VC_PRE_RESULT_EVENT_PARTIAL, text.c_str());
            }
        });
    };
    events.processing = [=] { postFor(utterance, [this] { setServiceState(VC_SERVICE_STATE_PROCESSING); }); };
    events.done = [=](const std::string& text) { postFor(utterance, [=] { done(utterance, text); }); };
    events.failed = [=](const std::string& what) { postFor(utterance, [=] { fail(what); }); };
    return events;
}

int Manager::stop() {
    if (!mSession || mServiceState == VC_SERVICE_STATE_PROCESSING) {
        return VC_ERROR_INVALID_STATE;
    }
    mSession->finish();
    return VC_ERROR_NONE;
}

int Manager::cancel() {
    if (!mSession) {
        return VC_ERROR_INVALID_STATE;
    }
    mSession->cancel();
    mSession.reset();
    post([this] { becomeReady(); });
    return VC_ERROR_NONE;
}

void Manager::becomeReady() {
    if (mServiceState != VC_SERVICE_STATE_NONE) {
        setServiceState(VC_SERVICE_STATE_READY);
    }
}

void Manager::setState(vc_state_e state) {
    const vc_state_e before = std::exchange(mState, state);
    if (before != state && callbacks.state) {
        callbacks.state(before, state);
    }
}

void Manager::setServiceState(vc_service_state_e state) {
    const vc_service_state_e before = std::exchange(mServiceState, state);
    if (before != state && callbacks.serviceState) {
        callbacks.serviceState(before, state);
    }
}

void Manager::report(vc_error_e reason, const std::string& message) {
    mErrorMessage = message;
    dlog_print(DLOG_ERROR, "orvane-voice", "%s", message.c_str());
    if (callbacks.error) {
        callbacks.error(reason);
    }
}

void Manager::fail(const std::string& what) {
    // Who waits for an utterance judges its failure by the way back from Recording.
    if (mServiceState == VC_SERVICE_STATE_READY) {
        setServiceState(VC_SERVICE_STATE_RECORDING);
    }
    if (!mSession) {
        return;  // cancelled in that callback
    }
    mSession.reset();
    report(VC_ERROR_OPERATION_FAILED, what);
    setServiceState(VC_SERVICE_STATE_READY);
}

void Manager::done(Number utterance, const std::string& sentence) {
    // The sentences that the recognizer knew; there may be newer ones by now.
    const auto intent = understand(sentence, mSessionEngine.get()->commands, mDialogue);
    if (intent && callbacks.preResult) {
        callbacks.preResult(VC_PRE_RESULT_EVENT_FINAL, sentence.c_str());
    }
    if (!mSession || mUtterance != utterance) {
        return;
    }
    mInResult = true;
    mSelected = false;
    if (intent) {
        deliver(utterance, *intent, sentence);
    } else {
        reject();
    }
    mInResult = false;
    if (mSession && mUtterance == utterance) {
        mSession.reset();
        post([this] { becomeReady(); });
    }
}

void Manager::reject() {
    vc_cmd_list_s none;
    if (callbacks.allResult) {
        callbacks.allResult(VC_RESULT_EVENT_REJECTED, &none, "", "No command fits what was said");
    }
}

void Manager::deliver(Number utterance, const Intent& intent, const std::string& sentence) {
    const std::string json = toJson(intent, sentence);
    ResultCommands result(clientsFor(intent.agent), sentence, json);
    const bool carriedOut =
        callbacks.allResult && callbacks.allResult(VC_RESULT_EVENT_RESULT_SUCCESS, &result.list, sentence.c_str(), "");
    const bool cancelled = !mSession || mUtterance != utterance;
    if (cancelled || (carriedOut && !mSelected)) {
        return;
    }
    for (std::size_t i = 0; i < result.clients.size(); ++i) {
        const bool chosen = std::find(mSelection.begin(), mSelection.end(), &result.commands[i]) != mSelection.end();
        if (!mSelected || chosen) {
            deliverResult(result.clients[i], sentence, json);
        }
    }
}

int Manager::select(vc_cmd_list_h list) {
    if (!list) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    if (!mInResult) {
        return VC_ERROR_INVALID_STATE;
    }
    mSelected = true;
    mSelection = list->commands;
    return VC_ERROR_NONE;
}

}  // namespace voice
