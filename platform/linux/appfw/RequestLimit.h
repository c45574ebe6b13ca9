// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <deque>
#include <map>
#include <memory>
#include <string>

namespace appfw {

// Limits the requests of each sender, so that a flood does not keep the main loop from its other work. IO thread only.
class RequestLimit {
public:
    using Clock = std::chrono::steady_clock;
    static constexpr std::size_t kPerSecond = 20;
    static constexpr long kPending = 10;

    // A request that the service has accepted. It is pending until the last copy is destroyed, on any thread.
    using Pending = std::shared_ptr<const void>;

    // Empty if the service has accepted 20 requests of this sender within the last second, or if 10 are pending.
    Pending accept(const std::string& sender, Clock::time_point now);

private:
    struct Sender {
        std::deque<Clock::time_point> accepted;  // within the last second
        std::shared_ptr<const char> pending = std::make_shared<const char>();
        // Any thread may reduce the number at any time.
        long countPending() const { return pending.use_count() - 1; }
    };

    void forgetOld(Clock::time_point now);

    std::map<std::string, Sender> mSenders;  // by unique bus name
};

}  // namespace appfw
