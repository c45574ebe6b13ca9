// SPDX-License-Identifier: Apache-2.0
// The objects of the running service on the session bus, as another application sees them.
#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <map>
#include <set>

#include "Person.h"
#include "gio/Connection.h"
#include "shared/Application.h"

namespace {

using Members = std::set<std::string>;
using Interfaces = std::map<std::string, Members>;
using Objects = std::map<std::string, Interfaces>;

constexpr char kRoot[] = "/org/orvane";

// Calls `handle` with each item of an array of GLib's descriptions; null is an empty array.
template <typename T, typename Handle>
void forEach(T** items, Handle handle) {
    for (; items != nullptr && *items != nullptr; ++items) {
        handle(**items);
    }
}

std::string print(GDBusArgInfo** arguments) {
    std::string text;
    forEach(arguments, [&](const GDBusArgInfo& argument) {
        text += std::string(" ") + argument.signature + " " + (argument.name ? argument.name : "");
    });
    return text;
}

Members membersOf(const GDBusInterfaceInfo& interface) {
    Members members;
    forEach(interface.methods, [&](const GDBusMethodInfo& method) {
        members.insert(std::string("method ") + method.name + " in" + print(method.in_args) + " out" +
                       print(method.out_args));
    });
    forEach(interface.signals, [&](const GDBusSignalInfo& signal) {
        members.insert(std::string("signal ") + signal.name + print(signal.args));
    });
    forEach(interface.properties, [&](const GDBusPropertyInfo& property) {
        members.insert(std::string("property ") + property.signature + " " + property.name + " access " +
                       std::to_string(property.flags));
    });
    return members;
}

// Without the standard interfaces, which every object has.
Interfaces interfacesOf(const GDBusNodeInfo& node) {
    Interfaces interfaces;
    forEach(node.interfaces, [&](const GDBusInterfaceInfo& interface) {
        const std::string name = interface.name;
        if (name.rfind("org.freedesktop.DBus.", 0) != 0) {
            interfaces[name] = membersOf(interface);
        }
    });
    return interfaces;
}

Interfaces described(const std::string& interface) {
    std::ifstream file(ORVANE_INTERFACES "/" + interface + ".xml");
    return interfacesOf(gio::Node({std::istreambuf_iterator<char>(file), {}}).get());
}

gio::Node introspect(const gio::Connection& bus, const std::string& path) {
    const auto answer = bus.call({sim::kServiceId, path, "org.freedesktop.DBus.Introspectable"}, "Introspect");
    return gio::Node(std::get<0>(answer.fields<std::string>()));
}

Objects objectsOfTheService(const gio::Connection& bus) {
    Objects objects;
    const gio::Node root = introspect(bus, kRoot);
    forEach(root.get().nodes, [&](const GDBusNodeInfo& child) {
        const std::string path = std::string(kRoot) + "/" + child.path;
        objects[path] = interfacesOf(introspect(bus, path).get());
    });
    return objects;
}

bool status(const gio::Connection& bus, const char* property) {
    const auto answer = bus.call({sim::kServiceId, "/org/orvane/Status", "org.freedesktop.DBus.Properties"}, "Get",
                                 gio::Variant::tuple("org.orvane.Status1", property));
    return std::get<0>(answer.fields<gio::Variant>()).as<bool>();
}

}  // namespace

// The service has no message port of its own, so it does not export that interface.
TEST(TheRunningService, ExportsExactlyTheDescribedInterfaces) {
    Person person;
    person.wakes();  // the service exports the focus object when it first requests the focus
    EXPECT_THAT(objectsOfTheService(person.appliance.session()),
                testing::ContainerEq(Objects{{"/org/orvane/Application", described("org.orvane.Application1")},
                                             {"/org/orvane/Focus", described("org.orvane.Focus1")},
                                             {"/org/orvane/Status", described("org.orvane.Status1")},
                                             {"/org/orvane/VoiceControl", described("org.orvane.VoiceControl1")}}));
}

TEST(TheStatusOfTheService, ShowsThatItListensUntilItRecords) {
    Person person;
    const gio::Connection& bus = person.appliance.session();
    sim::until("the wake engine listens", [&] { return status(bus, "Listening"); });
    EXPECT_TRUE(status(bus, "RecognizerReady"));
    person.wakes();
    sim::until("the wake engine no longer listens", [&] { return !status(bus, "Listening"); });
}
