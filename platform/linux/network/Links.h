// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "gio/SocketWatch.h"

namespace network {

// Whether the interface is up and has a carrier. Any thread.
bool linkWorks(const std::string& interface);

// Watches the kernel's notifications about links and routes. Routes alone are not enough: routes over a disconnected
// cable remain, and IPv4 routes disappear without a notification when their link goes down. IO thread only.
class LinkWatch {
public:
    // `changed` runs after every change of a link or route.
    explicit LinkWatch(std::function<void()> changed);

private:
    std::unique_ptr<gio::SocketWatch> mKernel;  // null if the kernel does not report changes
};

}  // namespace network
