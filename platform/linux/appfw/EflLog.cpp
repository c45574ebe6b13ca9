// SPDX-License-Identifier: Apache-2.0
#include "EflLog.h"

#include <Ecore.h>

#include <cstdio>
#include <utility>

#include "process/FaultLog.h"
#include "process/Guard.h"

namespace appfw {

namespace {

constexpr char kInvalid[] = "efl_data_scope_safe_get: ";

void write(const std::string& line) {
    process::logFault(DLOG_ERROR, "orvane-appfw", "EFL", line);
}

EflErrors& ofMainLoop() {
    static EflErrors errors;
    return errors;
}

void log(const std::string& function, const std::string& text) {
    if (eina_main_loop_is() == EINA_FALSE) {
        return write(function + ": " + text);
    }
    for (const std::string& line : ofMainLoop().add(function, text)) {
        write(line);
    }
}

Eina_Bool writeHeld(void*) noexcept {
    process::contained("EFL log", [] {
        if (const auto line = ofMainLoop().takeHeld()) {
            write(*line);
        }
    });
    return ECORE_CALLBACK_RENEW;
}

// Any thread.
void onError(const Eina_Log_Domain*, Eina_Log_Level, const char*, const char* function, int, const char* format, void*,
             va_list arguments) noexcept {
    process::contained("EFL log", [&] {
        char text[1024];
        vsnprintf(text, sizeof text, format, arguments);
        log(function, text);
    });
}

}  // namespace

std::vector<std::string> EflErrors::add(const std::string& function, const std::string& text) {
    const std::string line = function + ": " + text;
    const std::string endedTimer = std::exchange(mEndedTimer, "");
    if (mHeld && function == "ecore_timer_del") {
        mEndedTimer = mHeld->substr(sizeof kInvalid - 1);
        mHeld.reset();
        return {};
    }
    if (function == "efl_unref" && text == endedTimer) {
        return {};
    }
    std::vector<std::string> lines;
    if (const auto held = takeHeld()) {
        lines.push_back(*held);
    }
    if (line.rfind(kInvalid, 0) == 0) {
        mHeld = line;
    } else {
        lines.push_back(line);
    }
    return lines;
}

std::optional<std::string> EflErrors::takeHeld() {
    return std::exchange(mHeld, std::nullopt);
}

// One call reports all three errors about a timer, so an error that is still held when the loop becomes idle is
// unrelated.
void logEflErrors() {
    eina_log_print_cb_set(onError, nullptr);
    ecore_idle_enterer_add(writeHeld, nullptr);
}

}  // namespace appfw
