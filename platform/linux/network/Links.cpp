// SPDX-License-Identifier: Apache-2.0
#include "Links.h"

#include <dlog.h>
#include <ifaddrs.h>
#include <linux/rtnetlink.h>
#include <net/if.h>
#include <sys/socket.h>

#include <memory>
#include <stdexcept>
#include <utility>

#include "process/Guard.h"

namespace network {

namespace {

struct FreeAddresses {
    void operator()(ifaddrs* all) const noexcept { freeifaddrs(all); }
};

// A message from the kernel only triggers a new check.
std::unique_ptr<gio::SocketWatch> watchKernel(std::function<void()> changed) {
    sockaddr_nl address{};
    address.nl_family = AF_NETLINK;
    address.nl_groups = RTMGRP_LINK | RTMGRP_IPV4_ROUTE | RTMGRP_IPV6_ROUTE;
    const int descriptor = socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, NETLINK_ROUTE);
    try {
        auto watch = std::make_unique<gio::SocketWatch>(
            descriptor, [changed = std::move(changed)] { process::contained("link watch", changed); });
        if (bind(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
            throw std::runtime_error("the kernel does not report link changes");
        }
        return watch;
    } catch (const std::exception& error) {
        dlog_print(DLOG_WARN, "orvane-network", "a disconnected network cable will be detected late: %s", error.what());
        return nullptr;
    }
}

}  // namespace

bool linkWorks(const std::string& interface) {
    ifaddrs* list = nullptr;
    if (getifaddrs(&list) != 0) {
        return false;
    }
    const std::unique_ptr<ifaddrs, FreeAddresses> owned(list);
    for (const ifaddrs* one = list; one != nullptr; one = one->ifa_next) {
        if (interface == one->ifa_name) {
            return (one->ifa_flags & IFF_UP) != 0 && (one->ifa_flags & IFF_RUNNING) != 0;
        }
    }
    return false;
}

LinkWatch::LinkWatch(std::function<void()> changed) : mKernel(watchKernel(std::move(changed))) {}

}  // namespace network
