// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>

namespace gio {

// The description of a D-Bus interface.
class Interface {
public:
    // From the file NAME.xml below /org/orvane/dbus/ in the resource. Throws std::runtime_error when there is none.
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
