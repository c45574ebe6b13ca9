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

// The process's shared connection to the sound server. PulseAudio's loop runs on its own thread, "orvane-pulse". While
// it has clients but no server, it tries to connect, ten times a second at first and later twice a second.
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
    // After this returns, the client is not called again.
    void remove(Client& client);

    // Sends a request and waits for at most one second for its answer; the first connection may take another half
    // second. `start` runs under the loop's lock and may return an empty operation. False if the server cannot be
    // reached or does not answer in time; `late` is then true if it is still connected. Any thread except the loop's.
    using Start = std::function<pulse::Operation(const pulse::Context&)>;
    bool ask(const Start& start, bool* late = nullptr);

    bool connected() const;
    // The reason why the server is not connected.
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
    std::unique_ptr<pulse::Timer> mRetry;  // set while the next attempt is pending
    std::vector<Client*> mClients;
    int mAttempts = 0;

    mutable std::mutex mMutex;  // guards the two fields below; the innermost lock
    std::condition_variable mChanged;
    State mState = State::Idle;
    std::string mError;
};

}  // namespace audio
