// SPDX-License-Identifier: Apache-2.0
// One utterance, from opening the microphone to the text, on a thread that the caller provides.
//
// The thread opens the microphone, waits for speech, feeds the recognizer, and finds the end of speech. It calls the
// events. finish() and cancel() only set flags, so their callers do not wait for the thread.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>

#include "process/Owner.h"
#include "status/Supervisor.h"
#include "voice/AudioSource.h"
#include "voice/Engine.h"

namespace voice {

struct UtteranceEvents {
    std::function<void()> recording;  // the microphone is open
    std::function<void()> speech;     // the beginning of speech; once
    std::function<void(const std::string& text)> partial;
    std::function<void()> processing;                     // the microphone is closed
    std::function<void(const std::string& text)> done;    // the last event; empty text: a rejection
    std::function<void(const std::string& what)> failed;  // the last event
};

struct UtteranceSettings {
    bool endBySilence = true;
    double speechMarginDb = 9;  // how much louder than the room's noise speech must be
};

class UtteranceProgress;

class Utterance {
public:
    Utterance(EngineFuture engine, UtteranceSettings settings, UtteranceEvents events);

    // The thread's function. An event may still come shortly after cancel().
    void run() noexcept;

    // Any thread. finish() ends the utterance now, and its result follows; cancel() ends it without a result.
    void finish() { mFinish = true; }
    void cancel();

private:
    void recognize();
    void decode(Recognizer& recognizer);
    void readBlocks(Recognizer& recognizer, UtteranceProgress& progress);

    status::Supervisor& mSupervisor = process::shared<status::Supervisor>();
    const EngineFuture mEngine;
    const UtteranceSettings mSettings;
    const UtteranceEvents mEvents;
    AudioSource mSource;
    std::atomic<bool> mFinish{false};
    std::atomic<bool> mCanceled{false};
};

}  // namespace voice
