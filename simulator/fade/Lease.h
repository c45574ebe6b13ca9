// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <mutex>

#include "Keeper.h"

// The right to keep the media volume down. If this process ends while it holds the lease, a child process, the keeper
// (Keeper.h), restores the user's level, even after SIGKILL. Any thread.
class Lease {
public:
    // Takes over the connection to the keeper.
    explicit Lease(int keeper) : mKeeper(keeper) {}
    ~Lease();
    Lease(const Lease&) = delete;
    Lease& operator=(const Lease&) = delete;

    // From now on, the keeper restores this level.
    void hold(int level);
    void release() { hold(kNoLevel); }
    // From now on, reached() releases the lease at this level or above it.
    void releaseAt(int level);
    // Call this at every change of the volume, with the new level.
    void reached(int level);

private:
    void send(int level);  // needs the mutex

    std::mutex mMutex;
    int mKeeper;
    int mReleasedAt = kNoLevel;
};
