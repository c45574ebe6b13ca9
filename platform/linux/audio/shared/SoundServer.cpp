// SPDX-License-Identifier: Apache-2.0
#include "audio/SoundServer.h"

#include <errno.h>

#include <algorithm>

#include "pulse/Operation.h"

namespace audio {

namespace {

constexpr std::chrono::milliseconds kFirstAttempt{500};
constexpr std::chrono::milliseconds kAnswer{1000};
constexpr int kQuickAttempts = 20;
constexpr pa_usec_t kQuick = 100 * PA_USEC_PER_MSEC;
constexpr pa_usec_t kSlow = 500 * PA_USEC_PER_MSEC;

}  // namespace

SoundServer& SoundServer::get() {
    // Never destroyed: static objects of the product still call in while the process ends.
    static SoundServer* instance = new SoundServer;
    return *instance;
}

void SoundServer::add(Client& client) {
    const pulse::Mainloop::Lock lock(mLoop);
    mClients.push_back(&client);
    if (connected()) {
        client.connected(mContext->get());
    } else if (!mRetrying) {
        connect();
    }
}

void SoundServer::remove(Client& client) {
    const pulse::Mainloop::Lock lock(mLoop);
    mClients.erase(std::remove(mClients.begin(), mClients.end(), &client), mClients.end());
}

bool SoundServer::ask(const std::function<pa_operation*(pa_context*)>& start, bool* late) {
    if (!waitForFirstAttempt()) {
        return false;
    }
    pulse::Operation operation;
    {
        const pulse::Mainloop::Lock lock(mLoop);
        if (connected()) {
            operation.reset(start(mContext->get()));
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
    std::lock_guard lock(mMutex);
    return mState == State::Connected;
}

std::string SoundServer::error() const {
    std::lock_guard lock(mMutex);
    return mError;
}

bool SoundServer::waitForFirstAttempt() {
    {
        const pulse::Mainloop::Lock lock(mLoop);
        if (!mContext && !mRetrying) {
            connect();
        }
    }
    std::unique_lock lock(mMutex);
    mChanged.wait_for(lock, kFirstAttempt, [this] { return mState != State::Connecting; });
    return mState == State::Connected;
}

void SoundServer::set(State state, const std::string& error) {
    std::lock_guard lock(mMutex);
    mState = state;
    mError = error;
    mChanged.notify_all();
}

// Under the loop's lock. While the server is missing the state stays Gone, so that nobody waits for each attempt.
void SoundServer::connect() {
    if (mContext && PA_CONTEXT_IS_GOOD(pa_context_get_state(mContext->get()))) {
        return;
    }
    mContext = std::make_unique<pulse::Context>(mLoop, program_invocation_short_name,
                                                [this](pa_context_state_t state) { stateChanged(state); });
    if (mAttempts++ == 0) {
        set(State::Connecting, "");
    }
    if (!mContext->connect()) {
        contextEnded();
    }
}

void SoundServer::stateChanged(pa_context_state_t state) {
    if (state == PA_CONTEXT_READY) {
        mAttempts = 0;
        set(State::Connected, "");
        for (Client* client : mClients) {
            client->connected(mContext->get());
        }
    } else if (!PA_CONTEXT_IS_GOOD(state)) {
        contextEnded();
    }
}

void SoundServer::contextEnded() {
    const bool was = connected();
    if (was) {
        mAttempts = 1;
    }
    set(State::Gone, mContext->error());
    if (was) {
        for (Client* client : mClients) {
            client->lost();
        }
    }
    retryLater();
}

void SoundServer::retryLater() {
    if (mRetrying) {
        return;
    }
    mRetrying = true;
    const pa_usec_t pause = mAttempts <= kQuickAttempts ? kQuick : kSlow;
    timeval when{};
    pa_timeval_add(pa_gettimeofday(&when), pause);
    mLoop.api()->time_new(mLoop.api(), &when, retry, this);
}

void SoundServer::retry(pa_mainloop_api* api, pa_time_event* event, const timeval*, void* self) noexcept {
    api->time_free(event);
    SoundServer& server = *static_cast<SoundServer*>(self);
    server.mRetrying = false;
    if (server.mClients.empty()) {
        server.mContext.reset();
        server.mAttempts = 0;
    } else {
        server.connect();
    }
}

}  // namespace audio
