// SPDX-License-Identifier: Apache-2.0
// Log lines about faults that may last or recur, such as a missing sound server. The log shows the first occurrence,
// and later ones at growing intervals with their number. Any thread; nothing here blocks.
#pragma once

#include <dlog.h>

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace process {

// The occurrences of one fault. Not thread-safe.
class Recurrence {
public:
    using Clock = std::chrono::steady_clock;
    using Count = unsigned long;

    // Empty: the log does not show this occurrence. Otherwise, how many it has not shown since the last one that it
    // showed.
    std::optional<Count> occurred(Clock::time_point now);
    // What failed works. A fault that returns before this time is still the same fault.
    void endsAt(Clock::time_point time);
    Clock::time_point last() const { return mLast; }

private:
    bool isNew(Clock::time_point now) const;

    Clock::time_point mShown;
    Clock::time_point mLast;
    std::optional<Clock::time_point> mEnd;
    Clock::duration mInterval{0};  // from the last shown occurrence to the next; zero: none was shown
    Count mHidden = 0;
};

// The faults of a process. Not thread-safe. Forgets the fault with the oldest occurrence if there are too many.
class Recurrences {
public:
    static constexpr std::size_t kMost = 256;

    std::optional<Recurrence::Count> occurred(const std::string& operation, const std::string& fault,
                                              Recurrence::Clock::time_point now);
    void endAt(const std::string& operation, Recurrence::Clock::time_point time);

private:
    void forgetOldest();

    std::map<std::pair<std::string, std::string>, Recurrence> mFaults;  // by operation and fault
};

// Logs a fault of this operation, or counts it. Returns whether it is in the log. `operation` names what failed, for
// faultEnded().
bool logFault(log_priority priority, const char* tag, const std::string& operation, const std::string& text) noexcept;
// The operation works. Its faults count as new if they return after it has worked this long.
void faultEnded(const std::string& operation, std::chrono::seconds proof = {}) noexcept;

}  // namespace process
