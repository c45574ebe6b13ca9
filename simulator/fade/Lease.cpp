// SPDX-License-Identifier: Apache-2.0
#include "Lease.h"

#include <sys/socket.h>
#include <unistd.h>

Lease::~Lease() {
    close(mKeeper);
}

void Lease::hold(int level) {
    const std::lock_guard lock(mMutex);
    send(level);
}

void Lease::releaseAt(int level) {
    const std::lock_guard lock(mMutex);
    mReleasedAt = level;
}

void Lease::reached(int level) {
    const std::lock_guard lock(mMutex);
    if (mReleasedAt != kNoLevel && level >= mReleasedAt) {
        send(kNoLevel);
    }
}

// Fails only if the keeper was killed.
void Lease::send(int level) {
    mReleasedAt = kNoLevel;
    ::send(mKeeper, &level, sizeof level, MSG_NOSIGNAL);
}
