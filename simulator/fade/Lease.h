// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>

// The right to keep the media volume down. If this process ends while it holds the lease, a child process, the keeper,
// restores the user's level, even after SIGKILL. Any thread.
class Lease {
public:
    // Starts the keeper. Call it before the process starts any thread. Throws std::runtime_error.
    Lease();
    ~Lease();
    Lease(const Lease&) = delete;
    Lease& operator=(const Lease&) = delete;

    // From now on, the keeper restores this level.
    void hold(int level);
    void release() { hold(kNothing); }
    // From now on, reached() releases the lease at this level or above it.
    void releaseAt(int level) { mReleasedAt = level; }
    // Call this at every change of the volume, with the new level.
    void reached(int level);

private:
    static constexpr int kNothing = -1;

    int mKeeper;  // the connection to it
    std::atomic<int> mReleasedAt{kNothing};
};
