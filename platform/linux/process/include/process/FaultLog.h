// SPDX-License-Identifier: Apache-2.0
// Log lines about faults that may last or recur, such as a missing sound server. Logs the first occurrence, and later
// ones at growing intervals, with the number of skipped occurrences. Any thread; nothing here blocks.
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

    // Returns nothing if this occurrence is not to be logged. Otherwise, returns how many occurrences were skipped
    // since the last logged one.
    std::optional<Count> occurred(Clock::time_point now);
    // The operation works again. A fault that returns before this time still counts as the same fault.
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
// The operation works again. A fault that returns counts as new only if the operation has worked for `proof`.
void faultEnded(const std::string& operation, std::chrono::seconds proof = {}) noexcept;

}  // namespace process
