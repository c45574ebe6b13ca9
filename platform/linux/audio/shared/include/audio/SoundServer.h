// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "pulse/Context.h"
#include "pulse/Mainloop.h"
#include "pulse/Operation.h"
#include "pulse/Timer.h"

namespace audio {

// The connection to the sound server that the process shares. PulseAudio's loop runs on its own thread, "orvane-pulse".
// While there are clients and no server, it tries to connect ten times a second at first and twice a second later.
class SoundServer {
public:
    // Both run with the loop's lock held and must not block.
    class Client {
    public:
        virtual void connected(pulse::Context& context) noexcept = 0;
        virtual void lost() noexcept = 0;

    protected:
        ~Client() = default;
    };

    SoundServer() = default;
    ~SoundServer() { stop(); }
    SoundServer(const SoundServer&) = delete;
    SoundServer& operator=(const SoundServer&) = delete;

    const pulse::Mainloop& loop() const { return mLoop; }
    // Calls connected() before it returns if there is a connection. Never waits for the server.
    void add(Client& client);
    // When this returns, the client is not called any more.
    void remove(Client& client);

    // Sends a request and waits at most a second for its answer; a first connection may take half a second more.
    // `start` runs under the loop's lock and may return an empty operation. False when the server cannot be reached or
    // does not answer in time; `late` is set when it is connected all the same. Any thread but the loop's own.
    using Start = std::function<pulse::Operation(const pulse::Context&)>;
    bool ask(const Start& start, bool* late = nullptr);

    bool connected() const;
    // Why there is no connection.
    std::string error() const;

    // Closes the connection and joins the loop's thread.
    void stop() noexcept;

private:
    enum class State { Idle, Connecting, Connected, Gone };

    void connect();
    void open();
    void stateChanged(pulse::Context::State state);
    void contextEnded(const std::string& why);
    void retryLater();
    void retry();
    void set(State state, const std::string& error);
    bool waitForFirstAttempt();

    pulse::Mainloop mLoop{"orvane-pulse"};
    // Under the loop's lock.
    std::unique_ptr<pulse::Context> mContext;
    std::unique_ptr<pulse::Timer> mRetry;  // while the next attempt waits
    std::vector<Client*> mClients;
    int mAttempts = 0;

    mutable std::mutex mMutex;  // of the two below; the innermost lock
    std::condition_variable mChanged;
    State mState = State::Idle;
    std::string mError;
};

}  // namespace audio
