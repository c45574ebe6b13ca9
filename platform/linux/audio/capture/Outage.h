// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <mutex>
#include <string>

namespace audio {

// The state of capture in the whole process: logs once when it begins to fail and once when it works again, however
// often readers try in between. Any thread.
class Outage {
public:
    void began(const std::string& why);
    void ended() {
        if (mOut) {
            end();
        }
    }
    // How long a read waits for frames: short at first, longer when the outage lasts, so that a reader that tries again
    // and again costs little.
    std::chrono::milliseconds patience() const;

private:
    void end();

    std::atomic<bool> mOut{false};
    mutable std::mutex mMutex;
    std::chrono::steady_clock::time_point mSince;
};

}  // namespace audio
