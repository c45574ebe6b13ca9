// SPDX-License-Identifier: Apache-2.0
#include "modules/MainLoop.h"

#include <Ecore.h>

#include <stdexcept>
#include <string>

namespace bench {

namespace {

constexpr double kWatchdogSeconds = 30;

Eina_Bool giveUp(void* late) noexcept {
    *static_cast<bool*>(late) = true;
    ecore_main_loop_quit();
    return ECORE_CALLBACK_RENEW;
}

}  // namespace

MainLoop::MainLoop() {
    ecore_app_no_system_modules();
    ecore_init();
}

MainLoop::~MainLoop() {
    ecore_shutdown();
}

void MainLoop::run(const char* what) {
    bool late = false;
    Ecore_Timer* watchdog = ecore_timer_add(kWatchdogSeconds, giveUp, &late);
    ecore_main_loop_begin();
    ecore_timer_del(watchdog);
    if (late) {
        throw std::runtime_error(std::string("timed out waiting until ") + what);
    }
}

void MainLoop::quit() {
    ecore_main_loop_quit();
}

}  // namespace bench
