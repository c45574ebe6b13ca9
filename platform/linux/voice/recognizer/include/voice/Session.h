// SPDX-License-Identifier: Apache-2.0
// One utterance, from the first sound to its words, on a thread of its own.
//
// The thread opens the microphone, waits for somebody to speak, feeds the recognizer while they do and finds the end.
// Everything is told by the events, on that thread. finish() and cancel() only raise flags; nobody waits for the
// thread.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <string>

#include "voice/AudioSource.h"
#include "voice/Engine.h"

namespace voice {

struct SessionEvents {
    std::function<void()> recording;  // the microphone is open
    std::function<void()> speech;     // somebody speaks; once
    std::function<void(const std::string& text)> partial;
    std::function<void()> processing;                     // the microphone is closed
    std::function<void(const std::string& text)> done;    // the sentence; empty: none was understood. The last event
    std::function<void(const std::string& what)> failed;  // the last event
};

struct SessionSettings {
    bool endBySilence = true;
    double speechMarginDb = 9;  // above the room's noise
};

class Session {
public:
    Session(EngineFuture engine, SessionSettings settings, SessionEvents events);

    // The thread's work. No event comes once cancel() has returned and the events in progress have.
    void run();

    // Any thread: ends the utterance here, or gives it up.
    void finish() { mFinish = true; }
    void cancel();

private:
    class Listener;

    void listen(Recognizer& recognizer, Listener& listener);

    const EngineFuture mEngine;
    const SessionSettings mSettings;
    const SessionEvents mEvents;
    AudioSource mSource;
    std::atomic<bool> mFinish{false};
    std::atomic<bool> mCancelled{false};
};

}  // namespace voice
