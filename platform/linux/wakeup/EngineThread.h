// SPDX-License-Identifier: Apache-2.0
// The wake engine's thread.
//
// Other threads queue commands, and this thread executes them in order. A start is accepted only while no listening
// period is running or queued, so every start in the queue except the last is followed by its cancel. Therefore a
// running listening period is canceled as soon as the queue is not empty, and callers do not have to wait for the
// thread.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "Reporter.h"
#include "Spotter.h"
#include "status/Status.h"
#include "wakeup_engine.h"

namespace wakeup {

class EngineThread {
public:
    using Warning = nuance::IWakeupListener::Warning;
    using AudioIn = nuance::IWakeupAudioIn;

    // The thread passes the outcome of each listening period to the reporter. It does not run before launch().
    explicit EngineThread(Reporter& reporter);
    // Cancels the listening period and waits for the thread.
    ~EngineThread();
    // Starts the thread unless it runs. Throws std::system_error.
    void launch();
    EngineThread(const EngineThread&) = delete;
    EngineThread& operator=(const EngineThread&) = delete;

    // Sets the spotter for later listening periods; null removes it.
    void setSpotter(std::shared_ptr<Spotter> spotter);
    // Cancels a listening period with another input and waits until the thread no longer uses that input.
    void setAudioIn(AudioIn* audioIn);

    bool isListening();
    // Returns the reason for a failure to start, or nothing. Waits for a report in progress, except on this thread.
    std::optional<Warning> start();
    // Does nothing without a listening period, which may have just ended.
    void cancel();
    bool hasSpotter();

private:
    enum class State {
        Idle,
        Listening,  // to mInput
        Reporting,  // the end of a period
    };
    struct Command {
        enum Kind { Start, Cancel, Quit } kind;
        std::shared_ptr<Spotter> spotter = nullptr;
        AudioIn* audioIn = nullptr;
    };

    void run();
    void runPeriod(std::unique_lock<std::mutex>& lock, const Command& start);
    Outcome listenUnlocked(std::unique_lock<std::mutex>& lock, const Command& start);
    bool canceledWithin(std::chrono::milliseconds time);
    bool isOwnThread() const { return std::this_thread::get_id() == mThread.get_id(); }

    // Call with the mutex held.
    bool isActive() const;
    void queue(Command command);
    void queueCancel();
    void enter(State state);

    Reporter& mReporter;
    status::Status& mStatus;
    std::mutex mMutex;
    std::condition_variable mChanged;
    State mState = State::Idle;
    std::deque<Command> mCommands;
    AudioIn* mInput = nullptr;
    std::shared_ptr<Spotter> mSpotter;
    AudioIn* mAudioIn = nullptr;
    std::thread mThread;
};

}  // namespace wakeup
