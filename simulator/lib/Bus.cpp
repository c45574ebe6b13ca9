// SPDX-License-Identifier: Apache-2.0
#include "lib/Bus.h"

#include <unistd.h>

#include <stdexcept>

namespace sim {

namespace {

constexpr char kDaemon[] = "org.freedesktop.DBus";
constexpr char kDaemonPath[] = "/org/freedesktop/DBus";

Pointer<GVariant> child(GVariant* parent, gsize index) {
    return Pointer<GVariant>(g_variant_get_child_value(parent, index));
}

}  // namespace

GVariant* bytes(const std::string& text) {
    return g_variant_new_bytestring(text.c_str());
}

std::string textOf(GVariant* bytestring) {
    return g_variant_get_bytestring(bytestring);
}

GVariant* packExtras(const Extras& extras) {
    GVariantBuilder all;
    g_variant_builder_init(&all, G_VARIANT_TYPE("a(aybaay)"));
    for (const auto& [key, values] : extras) {
        GVariantBuilder list;
        g_variant_builder_init(&list, G_VARIANT_TYPE("aay"));
        for (const std::string& value : values) {
            g_variant_builder_add_value(&list, bytes(value));
        }
        g_variant_builder_add(&all, "(@ayb@aay)", bytes(key), values.size() != 1, g_variant_builder_end(&list));
    }
    return g_variant_builder_end(&all);
}

Extras unpackExtras(GVariant* extras) {
    Extras result;
    for (gsize i = 0; i < g_variant_n_children(extras); ++i) {
        const auto extra = child(extras, i);
        const auto values = child(extra.get(), 2);
        auto& list = result[textOf(child(extra.get(), 0).get())];
        for (gsize j = 0; j < g_variant_n_children(values.get()); ++j) {
            list.push_back(textOf(child(values.get(), j).get()));
        }
    }
    return result;
}

GVariant* packEntries(const Entries& entries) {
    GVariantBuilder all;
    g_variant_builder_init(&all, G_VARIANT_TYPE("a(ayay)"));
    for (const auto& [key, value] : entries) {
        g_variant_builder_add(&all, "(@ay@ay)", bytes(key), bytes(value));
    }
    return g_variant_builder_end(&all);
}

Entries unpackEntries(GVariant* entries) {
    Entries result;
    for (gsize i = 0; i < g_variant_n_children(entries); ++i) {
        const auto entry = child(entries, i);
        result[textOf(child(entry.get(), 0).get())] = textOf(child(entry.get(), 1).get());
    }
    return result;
}

Bus::Bus(GBusType type) {
    Fault fault;
    mBus.reset(g_bus_get_sync(type, nullptr, fault.out()));
    if (!mBus) {
        throw std::runtime_error("no message bus: " + fault.text());
    }
}

Bus::Bus(const std::string& address) {
    Fault fault;
    const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                         G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    mBus.reset(g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, nullptr, fault.out()));
    if (!mBus) {
        throw std::runtime_error("no message bus at " + address + ": " + fault.text());
    }
    g_dbus_connection_set_exit_on_close(mBus.get(), FALSE);
}

Bus::~Bus() {
    for (const auto& service : mServices) {
        g_dbus_connection_unregister_object(mBus.get(), service->id);
    }
}

void Bus::serve(const std::string& path, const std::string& interfaceXml, Handler handler, bool trusted,
                Getter getter) {
    Fault fault;
    const std::string xml = "<node>" + interfaceXml + "</node>";
    Pointer<GDBusNodeInfo> node(g_dbus_node_info_new_for_xml(xml.c_str(), fault.out()));
    if (!node) {
        throw std::runtime_error("bad description of " + path + ": " + fault.text());
    }
    auto service =
        std::make_unique<Service>(Service{this, std::move(node), std::move(handler), std::move(getter), trusted, 0});
    static const GDBusInterfaceVTable table{onCall, onGet, nullptr, {}};
    service->id = g_dbus_connection_register_object(mBus.get(), path.c_str(), service->node->interfaces[0], &table,
                                                    service.get(), nullptr, fault.out());
    if (service->id == 0) {
        throw std::runtime_error("cannot serve " + path + ": " + fault.text());
    }
    mServices.push_back(std::move(service));
}

void Bus::own(const std::string& name) {
    const auto answer =
        call(kDaemon, kDaemonPath, kDaemon, "RequestName", g_variant_new("(su)", name.c_str(), 4U /* do not queue */));
    guint32 result = 0;
    g_variant_get(answer.get(), "(u)", &result);
    if (result != 1) {
        throw std::runtime_error(name + " already runs");
    }
}

Pointer<GVariant> Bus::call(const std::string& name, const std::string& path, const std::string& interface,
                            const std::string& method, GVariant* arguments, int milliseconds) {
    Fault fault;
    Pointer<GVariant> answer(g_dbus_connection_call_sync(mBus.get(), name.c_str(), path.c_str(), interface.c_str(),
                                                         method.c_str(), arguments, nullptr, G_DBUS_CALL_FLAGS_NONE,
                                                         milliseconds, nullptr, fault.out()));
    if (!answer) {
        throw std::runtime_error(name + " " + method + ": " + fault.text());
    }
    return answer;
}

void Bus::emit(const std::string& path, const std::string& interface, const std::string& signal, GVariant* arguments) {
    g_dbus_connection_emit_signal(mBus.get(), nullptr, path.c_str(), interface.c_str(), signal.c_str(), arguments,
                                  nullptr);
}

bool Bus::hasOwner(const std::string& name) {
    const auto answer = call(kDaemon, kDaemonPath, kDaemon, "NameHasOwner", g_variant_new("(s)", name.c_str()));
    gboolean owned = FALSE;
    g_variant_get(answer.get(), "(b)", &owned);
    return owned;
}

bool Bus::isOurUser(const std::string& sender) {
    const auto answer =
        call(kDaemon, kDaemonPath, kDaemon, "GetConnectionUnixUser", g_variant_new("(s)", sender.c_str()));
    guint32 user = 0;
    g_variant_get(answer.get(), "(u)", &user);
    return user == getuid();
}

void Bus::onCall(GDBusConnection*, const gchar* sender, const gchar*, const gchar*, const gchar* method,
                 GVariant* arguments, GDBusMethodInvocation* invocation, gpointer data) noexcept {
    auto& service = *static_cast<Service*>(data);
    try {
        if (service.trusted && !service.bus->isOurUser(sender)) {
            g_dbus_method_invocation_return_dbus_error(invocation, "org.freedesktop.DBus.Error.AccessDenied",
                                                       "another user's application");
            return;
        }
        g_dbus_method_invocation_return_value(invocation, service.handler(method, sender, arguments));
    } catch (const std::invalid_argument& absent) {
        g_dbus_method_invocation_return_dbus_error(invocation, "org.orvane.Error.PortNotFound", absent.what());
    } catch (const std::exception& fault) {
        g_dbus_method_invocation_return_dbus_error(invocation, "org.freedesktop.DBus.Error.Failed", fault.what());
    }
}

GVariant* Bus::onGet(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* property, GError**,
                     gpointer data) noexcept {
    const auto& service = *static_cast<Service*>(data);
    return service.getter ? service.getter(property) : nullptr;
}

}  // namespace sim
