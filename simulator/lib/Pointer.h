// SPDX-License-Identifier: Apache-2.0
// Owning pointers for GLib objects.
#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>

namespace sim {

struct Release {
    void operator()(GVariant* variant) const noexcept { g_variant_unref(variant); }
    void operator()(GDBusConnection* bus) const noexcept { g_object_unref(bus); }
    void operator()(GDBusNodeInfo* node) const noexcept { g_dbus_node_info_unref(node); }
    void operator()(GDataInputStream* stream) const noexcept { g_object_unref(stream); }
    void operator()(GSubprocess* process) const noexcept { g_object_unref(process); }
    void operator()(GMainLoop* loop) const noexcept { g_main_loop_unref(loop); }
    void operator()(char* text) const noexcept { g_free(text); }
};

template <typename T>
using Pointer = std::unique_ptr<T, Release>;

class Fault {
public:
    Fault() = default;
    ~Fault() { g_clear_error(&mError); }
    Fault(const Fault&) = delete;
    Fault& operator=(const Fault&) = delete;

    GError** out() {
        g_clear_error(&mError);
        return &mError;
    }
    std::string text() const { return mError ? mError->message : "no reason given"; }

private:
    GError* mError = nullptr;
};

}  // namespace sim
