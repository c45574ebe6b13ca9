// SPDX-License-Identifier: Apache-2.0
#include "gio/Interface.h"

#include <stdexcept>

#include "gio/GPointer.h"

namespace gio {

namespace {

struct BytesUnref {
    void operator()(GBytes* bytes) const noexcept { g_bytes_unref(bytes); }
};

Node read(GResource* resource, const std::string& name) {
    Error error;
    const std::string path = "/org/orvane/dbus/" + name + ".xml";
    const std::unique_ptr<GBytes, BytesUnref> xml(
        g_resource_lookup_data(resource, path.c_str(), G_RESOURCE_LOOKUP_FLAGS_NONE, error.out()));
    if (!xml) {
        throw std::runtime_error("no description of the interface " + name + ": " + error.message());
    }
    // The data of a resource has a terminating zero that its size does not include.
    return Node(static_cast<const char*>(g_bytes_get_data(xml.get(), nullptr)));
}

}  // namespace

Node::Node(const std::string& xml) {
    Error error;
    mNode.reset(g_dbus_node_info_new_for_xml(xml.c_str(), error.out()));
    if (!mNode) {
        throw std::runtime_error("not a description of an object: " + error.message());
    }
}

Interface::Interface(GResource* resource, const std::string& name) : mNode(read(resource, name)) {
    if (mNode.get().interfaces == nullptr || get() == nullptr) {
        throw std::runtime_error("no description of the interface " + name);
    }
}

}  // namespace gio
