// SPDX-License-Identifier: Apache-2.0
#include "apps/Viewer.h"

#include <algorithm>

namespace sim {

namespace {

constexpr char kXml[] =
    "<interface name='org.freedesktop.Application'>"
    "<method name='Activate'><arg type='a{sv}' direction='in'/></method>"
    "<method name='Open'><arg type='as' direction='in'/><arg type='a{sv}' direction='in'/></method>"
    "<method name='ActivateAction'><arg type='s' direction='in'/><arg type='av' direction='in'/>"
    "<arg type='a{sv}' direction='in'/></method></interface>";

std::string pathOf(const std::string& id) {
    std::string path = "/" + id;
    std::replace(path.begin(), path.end(), '.', '/');
    std::replace(path.begin(), path.end(), '-', '_');
    return path;
}

}  // namespace

Viewer::Viewer(const std::string& id) : Application(id) {
    bus().serve(pathOf(id), kXml,
                [this](const std::string& method, const std::string&, GVariant* arguments) -> GVariant* {
                    if (method == "Open") {
                        const Pointer<GVariant> list(g_variant_get_child_value(arguments, 0));
                        for (gsize i = 0; i < g_variant_n_children(list.get()); ++i) {
                            const Pointer<GVariant> uri(g_variant_get_child_value(list.get(), i));
                            record().write("opened", {{"uri", g_variant_get_string(uri.get(), nullptr)}});
                        }
                    } else {
                        record().write("activated");
                    }
                    return nullptr;
                });
}

}  // namespace sim
