// SPDX-License-Identifier: Apache-2.0
#include "RequestLimit.h"

namespace appfw {

RequestLimit::Pending RequestLimit::accept(const std::string& sender, Clock::time_point now) {
    forgetOld(now);
    Sender& known = mSenders[sender];
    if (known.accepted.size() >= kPerSecond || known.countPending() >= kPending) {
        return nullptr;
    }
    known.accepted.push_back(now);
    // A new object for each request, so that the limit counts requests, not copies.
    return Pending(known.pending.get(), [pending = known.pending](const void*) {});
}

// Also forgets senders, which may have left the bus.
void RequestLimit::forgetOld(Clock::time_point now) {
    for (auto sender = mSenders.begin(); sender != mSenders.end();) {
        auto& accepted = sender->second.accepted;
        while (!accepted.empty() && now - accepted.front() >= std::chrono::seconds(1)) {
            accepted.pop_front();
        }
        const bool idle = accepted.empty() && sender->second.countPending() == 0;
        sender = idle ? mSenders.erase(sender) : std::next(sender);
    }
}

}  // namespace appfw
