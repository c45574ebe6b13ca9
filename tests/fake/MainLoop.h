// SPDX-License-Identifier: Apache-2.0
// Ecore's timers and thread-safe calls on a virtual clock. The test's thread is the main loop: time passes only in
// advance(), posted calls run only in runPosted() or advance(). Timers and posted calls are recorded on the platform.
#pragma once

#include <stddef.h>

#include <functional>

namespace fake {

class MainLoop {
public:
    static MainLoop& get();

    double now() const;
    // Lets `seconds` of virtual time pass: runs due timers in their order and everything posted.
    void advance(double seconds);
    // Runs what other threads posted; returns how many calls ran.
    int runPosted();
    // Runs posted calls until the condition holds. False when the watchdog (20 s) ends first.
    bool runUntil(const std::function<bool()>& condition);
    size_t timers() const;                // that now run
    double interval(size_t index) const;  // of the running timer, oldest first
    bool onMainThread() const;
    // What usleep does on the product's own threads from now on, on the sleeper's thread; null: it sleeps.
    void onSleep(std::function<void(unsigned microseconds)> sleep);
};

inline MainLoop& mainLoop() {
    return MainLoop::get();
}

}  // namespace fake
