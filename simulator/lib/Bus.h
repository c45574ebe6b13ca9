// SPDX-License-Identifier: Apache-2.0
// A connection to a message bus, and the calls and signals of applications over it. All on the thread of the default
// main context.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "lib/Pointer.h"

namespace sim {

// A single value is a list of one.
using Extras = std::map<std::string, std::vector<std::string>>;
using Entries = std::map<std::string, std::string>;

GVariant* bytes(const std::string& text);
std::string textOf(GVariant* bytestring);

GVariant* packExtras(const Extras& extras);
Extras unpackExtras(GVariant* extras);
GVariant* packEntries(const Entries& entries);
Entries unpackEntries(GVariant* entries);

class Bus {
public:
    // Method name and arguments; returns the answer (floating, or null for none). Throws std::runtime_error: the caller
    // then gets an error with that text.
    using Handler = std::function<GVariant*(const std::string& method, const std::string& sender, GVariant* arguments)>;
    using Getter = std::function<GVariant*(const std::string& property)>;

    // Throws std::runtime_error.
    explicit Bus(GBusType type);
    explicit Bus(const std::string& address);
    ~Bus();
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;

    // `trusted`: only callers that run as this user are answered.
    void serve(const std::string& path, const std::string& interfaceXml, Handler handler, bool trusted = true,
               Getter getter = nullptr);
    void own(const std::string& name);
    // Waits for the answer. Throws std::runtime_error with the error's text.
    Pointer<GVariant> call(const std::string& name, const std::string& path, const std::string& interface,
                           const std::string& method, GVariant* arguments, int milliseconds = 5000);
    void emit(const std::string& path, const std::string& interface, const std::string& signal, GVariant* arguments);
    bool hasOwner(const std::string& name);
    GDBusConnection* get() const { return mBus.get(); }

private:
    struct Service {
        Bus* bus;
        Pointer<GDBusNodeInfo> node;
        Handler handler;
        Getter getter;
        bool trusted;
        guint id;
    };
    bool isOurUser(const std::string& sender);
    static void onCall(GDBusConnection*, const gchar* sender, const gchar*, const gchar*, const gchar* method,
                       GVariant* arguments, GDBusMethodInvocation* invocation, gpointer data) noexcept;
    static GVariant* onGet(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* property, GError**,
                           gpointer data) noexcept;

    Pointer<GDBusConnection> mBus;
    std::vector<std::unique_ptr<Service>> mServices;
};

}  // namespace sim
