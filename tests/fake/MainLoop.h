// SPDX-License-Identifier: Apache-2.0
// Ecore's timers and thread-safe calls on a virtual clock. The test's thread is the main loop: time passes only in
// advance(), and posted calls run only in runPosted() and advance(). The platform records timers and posted calls.
#pragma once

#include <stddef.h>

#include <functional>

namespace fake {

class MainLoop {
public:
    static MainLoop& get();

    double now() const;
    // Advances the clock: runs timers when they are due, and posted calls.
    void advance(double seconds);
    // Runs the calls that other threads posted; returns their number.
    int runPosted();
    // Runs posted calls until the condition is true. False if the watchdog (20 s) ends first.
    bool runUntil(const std::function<bool()>& condition);
    size_t timers() const;                // that are running
    double interval(size_t index) const;  // of the running timer, oldest first
    bool onMainThread() const;
    // Replaces usleep on all threads but the main one; null restores it.
    void onSleep(std::function<void(unsigned microseconds)> sleep);
};

inline MainLoop& mainLoop() {
    return MainLoop::get();
}

}  // namespace fake
