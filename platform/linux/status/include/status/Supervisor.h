// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <map>
#include <mutex>
#include <string>

namespace status {

// Tracks the work in progress on the threads that must not hang. Shared by the process. Any thread.
class Supervisor {
public:
    using Clock = std::chrono::steady_clock;
    // The longest that a piece of work may take, unless it has a limit of its own.
    static constexpr std::chrono::seconds kLimit{10};

    // The work that has exceeded its limit for the longest time at `now`. Empty: none.
    std::string hanging(Clock::time_point now) const;

private:
    friend class Work;
    using Running = std::multimap<Clock::time_point, const char*>;

    mutable std::mutex mMutex;
    Running mRunning;  // by the end of its limit
};

// One piece of work, from construction to destruction: a call that returns soon unless something is broken.
class Work {
public:
    // `name` is a literal.
    Work(Supervisor& supervisor, const char* name, std::chrono::seconds limit = Supervisor::kLimit);
    ~Work();
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;

private:
    Supervisor& mSupervisor;
    Supervisor::Running::iterator mEntry;
};

}  // namespace status
