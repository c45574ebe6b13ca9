// SPDX-License-Identifier: Apache-2.0
#include "Manager.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <system_error>
#include <utility>

#include "Clients.h"
#include "mainloop/MainLoopPost.h"
#include "process/FaultLog.h"
#include "voice/Understanding.h"

namespace voice {

namespace {

constexpr char kTag[] = "orvane-voice";
constexpr char kOperation[] = "recognition";
// How much louder than the room's noise speech must be. The margin grows while loud media plays, so that a song is not
// mistaken for speech.
constexpr double kSpeechMarginDb = 9;
constexpr double kMediaMarginDb = 6;
constexpr int kLoudestMedia = 15;  // the media type's highest level

// Whether the recognizer was loaded but can no longer be used.
bool isLost(const EngineFuture& engine) {
    using namespace std::chrono_literals;
    if (!engine.valid() || engine.wait_for(0s) != std::future_status::ready) {
        return false;
    }
    const auto& loaded = engine.get();
    return !loaded || loaded->failed;
}

}  // namespace

Manager::Manager() {
    serveClients();
    mSettings.refresh();
    mSettings.observe([this](const std::string& before, const std::string& now) {
        post([this, before, now] {
            if (callbacks.languageChanged) {
                callbacks.languageChanged(before.c_str(), now.c_str());
            }
        });
    });
}

Manager::~Manager() {
    *mAlive = false;
    mSettings.observe(nullptr);
    if (mUtterance) {
        mUtterance->cancel();
    }
    mThreads.join();
    mStatus.setRecognizerReady(false);
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
        if (isCurrent(utterance)) {
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

void Manager::load(bool again) {
    mThreads.reap();
    if (!mUtterance) {
        mUtteranceEngine = {};  // frees the old models before the new ones are loaded
    }
    const Number number = ++mLastLoad;
    const auto engine = std::make_shared<std::promise<std::shared_ptr<Engine>>>();
    mEngine = engine->get_future().share();
    const auto finish = [=](std::shared_ptr<Engine> loadedEngine) {
        engine->set_value(loadedEngine);
        post([=, ok = loadedEngine != nullptr] { loaded(number, ok, again); });
    };
    try {
        mThreads.start("the thread that loads the recognizer",
                       [finish, language = mSettings.current(), file = mSentenceFile] {
                           const speech::MemoryReturn memoryReturn;
                           finish(loadEngine(language, file));
                       });
    } catch (const std::system_error& fault) {
        process::logFault(DLOG_ERROR, kTag, "thread", std::string("cannot start a thread: ") + fault.what());
        finish(nullptr);
    }
}

void Manager::loaded(Number load, bool ok, bool again) {
    if (load != mLastLoad) {
        return;  // a newer load is in progress
    }
    if (!ok) {
        showProblem("");
        if (again) {
            return;  // the utterance reports the error, and the next start tries again
        }
        reportError(VC_ERROR_ENGINE_NOT_FOUND, "No speech recognizer");
        setState(VC_STATE_INITIALIZED);
        return;
    }
    mProblems.set(status::Problems::Part::Recognizer, "");
    mStatus.setRecognizerReady(true);
    setState(VC_STATE_READY);
    if (mServiceState == VC_SERVICE_STATE_NONE) {
        setServiceState(VC_SERVICE_STATE_READY);
    }
}

int Manager::setSentenceFile(const std::string& path) {
    if (access(path.c_str(), R_OK) != 0) {
        process::logFault(DLOG_ERROR, kTag, path, "cannot read " + path);
        return VC_ERROR_IO_ERROR;
    }
    mSentenceFile = path;
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

UtteranceSettings Manager::utteranceSettings() const {
    return {mMode == VC_RECOGNITION_MODE_STOP_BY_SILENCE,
            kSpeechMarginDb + kMediaMarginDb * mMediaVolume / kLoudestMedia};
}

int Manager::start() {
    if (mState != VC_STATE_READY || mUtterance) {
        return VC_ERROR_INVALID_STATE;
    }
    mErrorMessage.clear();
    if (isLost(mEngine)) {
        load(true);
    }
    mUtteranceEngine = mEngine;
    const auto utterance =
        std::make_shared<Utterance>(mUtteranceEngine, utteranceSettings(), eventsFor(++mUtteranceNumber));
    mThreads.start("the utterance's thread", [utterance] { utterance->run(); });
    mUtterance = utterance;
    return VC_ERROR_NONE;
}

UtteranceEvents Manager::eventsFor(Number utterance) {
    UtteranceEvents events;
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
    if (!mUtterance || mServiceState == VC_SERVICE_STATE_PROCESSING) {
        return VC_ERROR_INVALID_STATE;
    }
    mUtterance->finish();
    return VC_ERROR_NONE;
}

int Manager::cancel() {
    if (!mUtterance) {
        return VC_ERROR_INVALID_STATE;
    }
    mUtterance->cancel();
    mUtterance.reset();
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

void Manager::reportError(vc_error_e reason, const std::string& message) {
    mErrorMessage = message;
    process::logFault(DLOG_ERROR, kTag, kOperation, message);
    if (callbacks.error) {
        callbacks.error(reason);
    }
}

void Manager::fail(const std::string& what) {
    // The product expects a failure between Recording and Ready.
    if (mServiceState == VC_SERVICE_STATE_READY) {
        setServiceState(VC_SERVICE_STATE_RECORDING);
    }
    if (!mUtterance) {
        return;  // the state callback has canceled the utterance
    }
    mUtterance.reset();
    if (isLost(mEngine)) {
        showProblem(": " + what);
    }
    reportError(VC_ERROR_OPERATION_FAILED, what);
    setServiceState(VC_SERVICE_STATE_READY);
}

void Manager::showProblem(const std::string& why) {
    mStatus.setRecognizerReady(false);
    mProblems.set(status::Problems::Part::Recognizer, "No speech recognizer for " + mSettings.current().id + why);
}

void Manager::done(Number utterance, const std::string& text) {
    // Uses the recognizer's sentences, even if newer ones have been loaded in the meantime.
    const auto intent = understand(text, mUtteranceEngine.get()->commands, mDialogue);
    if (intent && callbacks.preResult) {
        callbacks.preResult(VC_PRE_RESULT_EVENT_FINAL, text.c_str());
    }
    if (!isCurrent(utterance)) {
        return;
    }
    if (intent) {
        mDelivery.deliver(callbacks.allResult, *intent, text, [=] { return isCurrent(utterance); });
    } else {
        mDelivery.reject(callbacks.allResult);
    }
    if (isCurrent(utterance)) {
        mUtterance.reset();
        post([this] { becomeReady(); });
    }
}

}  // namespace voice
