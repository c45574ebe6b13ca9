// SPDX-License-Identifier: Apache-2.0
// Runs the real main loop until a condition is true.
#pragma once

#include <Ecore.h>

#include <chrono>
#include <functional>

// False if the watchdog ends first.
inline bool runMainLoopUntil(const std::function<bool()>& condition,
                             std::chrono::milliseconds watchdog = std::chrono::seconds(20)) {
    struct Watch {
        const std::function<bool()>& condition;
        std::chrono::steady_clock::time_point end;
        bool met;
    } watch{condition, std::chrono::steady_clock::now() + watchdog, condition()};
    if (watch.met) {
        return true;
    }
    ecore_timer_add(
        0.002,
        [](void* data) -> Eina_Bool {
            auto& state = *static_cast<Watch*>(data);
            state.met = state.condition();
            if (!state.met && std::chrono::steady_clock::now() < state.end) {
                return ECORE_CALLBACK_RENEW;
            }
            ecore_main_loop_quit();
            return ECORE_CALLBACK_CANCEL;
        },
        &watch);
    ecore_main_loop_begin();
    return watch.met;
}
