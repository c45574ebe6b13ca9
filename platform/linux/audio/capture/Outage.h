// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <mutex>
#include <string>

#include "status/Problems.h"

namespace audio {

// Tracks capture failures for the whole process and shows the current one in the service's problems. Logs each reason
// when capture begins to fail and then at growing intervals, although readers retry many times a second, and logs one
// line when capture works again. Any thread.
class Outage {
public:
    Outage();

    void began(const std::string& why);
    void ended() {
        if (mOut) {
            end();
        }
    }
    // How long a read waits for frames. The wait grows during a long outage, so that retries use little CPU time.
    std::chrono::milliseconds patience() const;

private:
    void end();

    status::Problems& mProblems;
    std::atomic<bool> mOut{false};
    mutable std::mutex mMutex;
    std::chrono::steady_clock::time_point mSince;
    bool mLogged = false;  // this outage is in the log
};

}  // namespace audio
