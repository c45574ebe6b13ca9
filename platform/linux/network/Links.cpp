// SPDX-License-Identifier: Apache-2.0
#include "Links.h"

#include <dlog.h>
#include <ifaddrs.h>
#include <linux/rtnetlink.h>
#include <net/if.h>
#include <sys/socket.h>

#include <array>
#include <memory>

#include "process/Guard.h"

namespace network {

namespace {

struct FreeAddresses {
    void operator()(ifaddrs* all) const noexcept { freeifaddrs(all); }
};

// A message from the kernel only triggers a new check.
gboolean onNews(GSocket* socket, GIOCondition, gpointer changed) noexcept {
    std::array<char, 16384> skipped;
    while (g_socket_receive_with_blocking(socket, skipped.data(), skipped.size(), FALSE, nullptr, nullptr) > 0) {
    }
    process::contained("watch of the links", *static_cast<std::function<void()>*>(changed));
    return G_SOURCE_CONTINUE;
}

gio::Object<GSocket> openNews() {
    const int descriptor = socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, NETLINK_ROUTE);
    sockaddr_nl address{};
    address.nl_family = AF_NETLINK;
    address.nl_groups = RTMGRP_LINK | RTMGRP_IPV4_ROUTE | RTMGRP_IPV6_ROUTE;
    gio::Error error;
    gio::Object<GSocket> news(g_socket_new_from_fd(descriptor, error.out()));
    if (news == nullptr || bind(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        dlog_print(DLOG_WARN, "orvane-network", "a disconnected network cable will be detected late: %s",
                   error ? error.message().c_str() : "the kernel does not report link changes");
        return nullptr;
    }
    return news;
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

LinkWatch::LinkWatch(std::function<void()> changed) : mChanged(std::move(changed)), mSocket(openNews()) {
    if (mSocket != nullptr) {
        mSource.reset(g_socket_create_source(mSocket.get(), G_IO_IN, nullptr));
        g_source_set_callback(mSource.get(), G_SOURCE_FUNC(onNews), &mChanged, nullptr);
        g_source_attach(mSource.get(), g_main_context_get_thread_default());
    }
}

LinkWatch::~LinkWatch() {
    if (mSource != nullptr) {
        g_source_destroy(mSource.get());
    }
}

}  // namespace network
