// SPDX-License-Identifier: Apache-2.0
#include "EngineThread.h"

#include <pthread.h>

#include <utility>

#include "ListeningPeriod.h"
#include "process/Owner.h"

namespace wakeup {

EngineThread::EngineThread(Reporter& reporter) : mReporter(reporter), mStatus(process::shared<status::Status>()) {}

void EngineThread::launch() {
    std::lock_guard lock(mMutex);
    if (!mThread.joinable()) {
        mThread = std::thread([this] {
            pthread_setname_np(pthread_self(), "orvane-wakeup");
            run();
        });
    }
}

EngineThread::~EngineThread() {
    {
        std::lock_guard lock(mMutex);
        queueCancel();
        queue({Command::Quit});
    }
    if (mThread.joinable()) {
        mThread.join();
    }
}

void EngineThread::setSpotter(std::shared_ptr<Spotter> spotter) {
    std::lock_guard lock(mMutex);
    mSpotter = std::move(spotter);
}

bool EngineThread::hasSpotter() {
    std::lock_guard lock(mMutex);
    return mSpotter != nullptr;
}

void EngineThread::setAudioIn(AudioIn* audioIn) {
    std::unique_lock lock(mMutex);
    if (audioIn != mAudioIn) {
        queueCancel();
    }
    mAudioIn = audioIn;
    if (!isOwnThread()) {
        // The thread may still be in a call to the old input, and the owner may destroy the input after this returns.
        mChanged.wait(lock, [&] { return mState != State::Listening || mInput == audioIn; });
    }
}

bool EngineThread::isListening() {
    std::lock_guard lock(mMutex);
    return isActive();
}

std::optional<EngineThread::Warning> EngineThread::start() {
    std::unique_lock lock(mMutex);
    if (!isOwnThread()) {
        // The listener's call for one listening period ends before the next period begins.
        mChanged.wait(lock, [this] { return mState != State::Reporting; });
    }
    if (!mSpotter) {
        return nuance::IWakeupListener::NOT_INITIALIZED;
    }
    if (!mAudioIn) {
        return nuance::IWakeupListener::AUDIOIN_NOT_ATTACHED;
    }
    if (isActive()) {
        return nuance::IWakeupListener::ALREADY_LISTENING;
    }
    queue({Command::Start, mSpotter, mAudioIn});
    return std::nullopt;
}

void EngineThread::cancel() {
    std::lock_guard lock(mMutex);
    queueCancel();
}

bool EngineThread::isActive() const {
    return mCommands.empty() ? mState == State::Listening : mCommands.back().kind == Command::Start;
}

void EngineThread::queue(Command command) {
    mCommands.push_back(std::move(command));
    mChanged.notify_all();
}

void EngineThread::queueCancel() {
    if (isActive()) {
        queue({Command::Cancel});
    }
}

void EngineThread::enter(State state) {
    mState = state;
    mChanged.notify_all();
}

void EngineThread::run() {
    std::unique_lock lock(mMutex);
    for (;;) {
        mChanged.wait(lock, [this] { return !mCommands.empty(); });
        const Command command = std::move(mCommands.front());
        mCommands.pop_front();
        if (command.kind == Command::Quit) {
            return;
        }
        if (command.kind == Command::Start) {
            runPeriod(lock, command);
        }
        // A cancel command takes effect as soon as it is queued, so there is nothing to do here.
    }
}

void EngineThread::runPeriod(std::unique_lock<std::mutex>& lock, const Command& start) {
    Outcome outcome;
    if (mCommands.empty()) {
        outcome = listenUnlocked(lock, start);
    }
    if (!mCommands.empty()) {
        outcome = {};  // a cancel takes precedence over a simultaneous detection
    }
    enter(State::Reporting);
    lock.unlock();
    mReporter.report(outcome);
    lock.lock();
    enter(State::Idle);
}

Outcome EngineThread::listenUnlocked(std::unique_lock<std::mutex>& lock, const Command& start) {
    mInput = start.audioIn;
    enter(State::Listening);
    lock.unlock();
    mStatus.setListening(true);
    Outcome outcome = listen(*start.spotter, *start.audioIn, [this](auto time) { return canceledWithin(time); });
    mStatus.setListening(false);
    lock.lock();
    return outcome;
}

bool EngineThread::canceledWithin(std::chrono::milliseconds time) {
    std::unique_lock lock(mMutex);
    return mChanged.wait_for(lock, time, [this] { return !mCommands.empty(); });
}

}  // namespace wakeup
