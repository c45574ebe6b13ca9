// SPDX-License-Identifier: Apache-2.0
// Remembers, for the whole process, that capture has failed, so that it is said once when it begins and once when it
// ends, however often readers try in between.
#pragma once

#include <atomic>
#include <chrono>
#include <mutex>
#include <string>

namespace audio {

class Outage {
public:
    static Outage& capture();

    void began(const std::string& why);
    void ended() {
        if (mOut) {
            end();
        }
    }
    // How long a read may wait for sound to come back: short at first, longer when the outage lasts, so that a reader
    // that tries again and again costs nothing.
    std::chrono::milliseconds patience() const;

private:
    void end();

    std::atomic<bool> mOut{false};
    mutable std::mutex mMutex;
    std::chrono::steady_clock::time_point mSince;
};

}  // namespace audio
