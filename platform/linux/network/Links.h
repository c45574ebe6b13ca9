// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>

#include "gio/GPointer.h"

namespace network {

// Whether the interface is up and has a carrier. Any thread.
bool linkWorks(const std::string& interface);

// The kernel's news of links: taken down, pulled out, and back. The routes over a pulled cable stay, and those of IPv4
// go without a word when their link is taken down, so that watching routes is not enough. I/O thread only.
class LinkWatch {
public:
    // Called at every change of a link.
    explicit LinkWatch(std::function<void()> changed);
    ~LinkWatch() = delete;  // lives until the process ends

private:
    std::function<void()> mChanged;
    gio::Object<GSocket> mSocket;
};

}  // namespace network
