// SPDX-License-Identifier: Apache-2.0
// Messages to the service manager that started this process, such as systemd for a unit with Type=notify. Any thread;
// nothing here blocks.
#pragma once

#include <chrono>
#include <string>

namespace status {

// Sends lines such as "READY=1" or "STATUS=text" to the socket in NOTIFY_SOCKET. Does nothing without the variable.
void notifyManager(const std::string& lines) noexcept;

// The manager ends a process that does not send "WATCHDOG=1" within this time (WATCHDOG_USEC). Zero: there is no
// watchdog for this process. Removes the variable; otherwise Ecore would send the message, even while another thread
// hangs. Call it before ecore_init().
std::chrono::microseconds takeWatchdogLimit() noexcept;

}  // namespace status
