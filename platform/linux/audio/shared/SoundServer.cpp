// SPDX-License-Identifier: Apache-2.0
#include "audio/SoundServer.h"

#include <errno.h>

#include <algorithm>
#include <exception>

#include "process/Guard.h"

namespace audio {

namespace {

constexpr std::chrono::milliseconds kFirstAttempt{500};
constexpr std::chrono::milliseconds kAnswer{1000};
constexpr int kQuickAttempts = 20;
constexpr std::chrono::milliseconds kQuick{100};
constexpr std::chrono::milliseconds kSlow{500};

}  // namespace

void SoundServer::add(Client& client) {
    const pulse::Mainloop::Lock lock(mLoop);
    mClients.push_back(&client);
    if (connected()) {
        client.connected(*mContext);
    } else if (!mRetry) {
        connect();
    }
}

void SoundServer::remove(Client& client) {
    const pulse::Mainloop::Lock lock(mLoop);
    mClients.erase(std::remove(mClients.begin(), mClients.end(), &client), mClients.end());
}

bool SoundServer::ask(const Start& start, bool* late) {
    if (!waitForFirstAttempt()) {
        return false;
    }
    pulse::Operation operation;
    {
        const pulse::Mainloop::Lock lock(mLoop);
        if (connected()) {
            operation = start(*mContext);
        }
    }
    if (!operation) {
        return false;
    }
    const bool answered = pulse::finish(mLoop, std::move(operation), kAnswer);
    if (late) {
        *late = !answered && connected();
    }
    return answered;
}

bool SoundServer::connected() const {
    const std::lock_guard lock(mMutex);
    return mState == State::Connected;
}

std::string SoundServer::error() const {
    const std::lock_guard lock(mMutex);
    return mError;
}

bool SoundServer::waitForFirstAttempt() {
    {
        const pulse::Mainloop::Lock lock(mLoop);
        if (!mContext && !mRetry) {
            connect();
        }
    }
    std::unique_lock lock(mMutex);
    mChanged.wait_for(lock, kFirstAttempt, [this] { return mState != State::Connecting; });
    return mState == State::Connected;
}

void SoundServer::set(State state, const std::string& error) {
    const std::lock_guard lock(mMutex);
    mState = state;
    mError = error;
    mChanged.notify_all();
}

// Under the loop's lock. While the server is missing, the state stays Gone, so that callers wait only for the first
// attempt.
void SoundServer::connect() {
    if (mContext && mContext->isGood()) {
        return;
    }
    if (mAttempts++ == 0) {
        set(State::Connecting, "");
    }
    try {
        open();
    } catch (const std::exception& fault) {
        contextEnded(fault.what());
    }
}

void SoundServer::open() {
    mContext.reset();
    mContext = std::make_unique<pulse::Context>(
        mLoop.api(), program_invocation_short_name, [this](pulse::Context::State state) {
            process::contained("connection to the sound server", [&] { stateChanged(state); });
        });
    if (!mContext->connect()) {
        contextEnded(mContext->error());
    }
}

void SoundServer::stateChanged(pulse::Context::State state) {
    if (state == pulse::Context::State::Ready) {
        mAttempts = 0;
        set(State::Connected, "");
        for (Client* client : mClients) {
            client->connected(*mContext);
        }
    } else if (state == pulse::Context::State::Ended) {
        contextEnded(mContext->error());
    }
}

void SoundServer::contextEnded(const std::string& why) {
    const bool was = connected();
    if (was) {
        mAttempts = 1;
    }
    set(State::Gone, why);
    if (was) {
        for (Client* client : mClients) {
            client->lost();
        }
    }
    retryLater();
}

void SoundServer::retryLater() {
    if (!mRetry) {
        mRetry = std::make_unique<pulse::Timer>(mLoop.api(), mAttempts <= kQuickAttempts ? kQuick : kSlow, [this] {
            process::contained("connection to the sound server", [this] { retry(); });
        });
    }
}

void SoundServer::retry() {
    mRetry.reset();
    if (mClients.empty()) {
        mContext.reset();
        mAttempts = 0;
    } else {
        connect();
    }
}

void SoundServer::stop() noexcept {
    {
        const pulse::Mainloop::Lock lock(mLoop);
        for (Client* client : mClients) {
            client->lost();
        }
        mClients.clear();
        mRetry.reset();
        mContext.reset();
        set(State::Gone, "the process is exiting");
    }
    mLoop.stop();
}

}  // namespace audio
