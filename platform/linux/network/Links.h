// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>

#include "gio/GPointer.h"

namespace network {

// Whether the interface is up and has a carrier. Any thread.
bool linkWorks(const std::string& interface);

// The kernel's announcements of links and routes. Routes alone are not enough: those over a pulled cable stay, and
// those of IPv4 disappear without an announcement when their link is taken down. IO thread only.
class LinkWatch {
public:
    // `changed` runs at every change of a link or a route.
    explicit LinkWatch(std::function<void()> changed);
    ~LinkWatch() = delete;  // lives until the process ends

private:
    std::function<void()> mChanged;
    gio::Object<GSocket> mSocket;
};

}  // namespace network
