// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>

namespace gio {

// A parsed description of an object: its interfaces and the names of its child objects.
class Node {
public:
    // Throws std::runtime_error for text that is not such a description.
    explicit Node(const std::string& xml);

    const GDBusNodeInfo& get() const { return *mNode; }

private:
    struct Unref {
        void operator()(GDBusNodeInfo* node) const noexcept { g_dbus_node_info_unref(node); }
    };

    std::unique_ptr<GDBusNodeInfo, Unref> mNode;
};

// The description of a D-Bus interface.
class Interface {
public:
    // Reads the file NAME.xml in /org/orvane/dbus/ of the resource. Throws std::runtime_error if it does not exist.
    Interface(GResource* resource, const std::string& name);

    std::string name() const { return get()->name; }
    // Borrowed.
    GDBusInterfaceInfo* get() const { return mNode.get().interfaces[0]; }

private:
    Node mNode;
};

}  // namespace gio
