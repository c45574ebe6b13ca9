// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>

namespace gio {

// The description of a D-Bus interface.
class Interface {
public:
    // Reads the file NAME.xml in /org/orvane/dbus/ of the resource. Throws std::runtime_error if it does not exist.
    Interface(GResource* resource, const std::string& name);

    std::string name() const { return get()->name; }
    // Borrowed.
    GDBusInterfaceInfo* get() const { return mNode->interfaces[0]; }

private:
    struct Unref {
        void operator()(GDBusNodeInfo* node) const noexcept { g_dbus_node_info_unref(node); }
    };

    std::unique_ptr<GDBusNodeInfo, Unref> mNode;
};

}  // namespace gio
