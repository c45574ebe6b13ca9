// SPDX-License-Identifier: Apache-2.0
// This process's one connection to the sound server, kept up. PulseAudio's loop runs on a thread of its own
// ("orvane-pulse"); clients hear there when the server is reached and when it has gone. While somebody is a client, a
// server that is missing is looked for ten times a second at first and twice a second later.
#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "pulse/Context.h"

namespace audio {

class SoundServer {
public:
    // Both are called with the loop's lock held and must not block.
    class Client {
    public:
        virtual void connected(pa_context* context) noexcept = 0;
        virtual void lost() noexcept = 0;

    protected:
        ~Client() = default;
    };

    // Lives until the process ends.
    static SoundServer& get();

    const pulse::Mainloop& loop() const { return mLoop; }
    // Tells the client at once when the server is connected already. Never waits for the server.
    void add(Client& client);
    // The client is not called any more when this returns.
    void remove(Client& client);

    // Sends a request and waits for its answer, at most a second; a first connection may take half a second more.
    // `start` runs under the loop's lock and may answer null. False when the server cannot be reached or does not
    // answer in time; that it is connected all the same is then told by `late`. Any thread but the loop's own.
    bool ask(const std::function<pa_operation*(pa_context*)>& start, bool* late = nullptr);

    bool connected() const;
    // Why there is no connection.
    std::string error() const;

private:
    enum class State { Idle, Connecting, Connected, Gone };

    SoundServer() = default;
    void connect();
    void stateChanged(pa_context_state_t state);
    void contextEnded();
    void retryLater();
    void set(State state, const std::string& error);
    bool waitForFirstAttempt();

    static void retry(pa_mainloop_api* api, pa_time_event* event, const timeval* when, void* self) noexcept;

    pulse::Mainloop mLoop{"orvane-pulse"};
    // Under the loop's lock.
    std::unique_ptr<pulse::Context> mContext;
    std::vector<Client*> mClients;
    int mAttempts = 0;
    bool mRetrying = false;

    mutable std::mutex mMutex;  // of the two below; the innermost lock
    std::condition_variable mChanged;
    State mState = State::Idle;
    std::string mError;
};

}  // namespace audio
