// SPDX-License-Identifier: Apache-2.0
// One connection, plain or secured. Used by one thread, but for interrupt().
#pragma once

#include <memory>
#include <string>

struct ssl_ctx_st;

namespace sim::hub {

class Socket {
public:
    explicit Socket(int handle) : mHandle(handle) {}
    ~Socket();
    Socket(Socket&& other) noexcept : mHandle(other.mHandle) { other.mHandle = -1; }
    Socket& operator=(Socket&&) = delete;

    int get() const { return mHandle; }
    // Any thread: whoever waits on it goes on.
    void interrupt() const;
    // True when the other end left, or was interrupted, within the time; -1: however long it takes.
    bool isLeftWithin(int milliseconds) const;

private:
    int mHandle;
};

class Stream {
public:
    virtual ~Stream() = default;
    // "" at the end. Both throw std::runtime_error when the connection breaks.
    virtual std::string read() = 0;
    virtual void write(const std::string& bytes) = 0;
};

// Certificate and key of the server.
class Identity {
public:
    // PEM files. Throws std::runtime_error.
    Identity(const std::string& certificate, const std::string& key);
    ssl_ctx_st* get() const { return mContext.get(); }

private:
    struct Free {
        void operator()(ssl_ctx_st* context) const noexcept;
    };
    std::unique_ptr<ssl_ctx_st, Free> mContext;
};

// The socket stays the caller's. Secured when there is an identity; throws std::runtime_error when that fails.
std::unique_ptr<Stream> makeStream(const Socket& socket, const Identity* identity);

}  // namespace sim::hub
