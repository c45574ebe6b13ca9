// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <net_connection.h>

#include <memory>
#include <mutex>
#include <vector>

#include "Monitor.h"

struct connection_s {
    unsigned long id = 0;
    connection_type_changed_cb callback = nullptr;
    void* userData = nullptr;
};

namespace network {

// The handles in use, and the monitor that reports to them. Shared by the process. Any thread, except that callbacks
// are set, run, and unset on the main loop.
class Handles {
public:
    connection_h create();
    // False if the handle is not in use.
    bool destroy(connection_h handle);
    // Waits for at most one second for the first answer. Any thread except the IO thread.
    connection_type_e type() { return mMonitor.type(); }
    // A null callback ends the reports.
    void setCallback(connection_h handle, connection_type_changed_cb callback, void* userData);

private:
    connection_s handleAfter(unsigned long id);
    void post(connection_type_e type);
    void report(connection_type_e type);

    std::mutex mMutex;
    std::vector<std::unique_ptr<connection_s>> mAll;  // in the order of their ids, which are never reused
    unsigned long mLastId = 0;
    // Destroyed first, so that it never reports to a destroyed list.
    Monitor mMonitor{[this](connection_type_e type) { post(type); }};
};

}  // namespace network
