// SPDX-License-Identifier: Apache-2.0
#include "Clients.h"

#include <algorithm>
#include <mutex>
#include <set>

#include "dlog.h"
#include "gio/Bus.h"
#include "gio/IoThread.h"

namespace voice {

namespace {

constexpr char kName[] = "org.orvane.VoiceControl";
constexpr char kPath[] = "/org/orvane/VoiceControl";
constexpr char kClientPath[] = "/org/orvane/VoiceClient";
constexpr char kClientInterface[] = "org.orvane.VoiceClient1";
constexpr int kTimeoutMilliseconds = 1000;
constexpr char kDescription[] =
    "<node><interface name='org.orvane.VoiceControl1'>"
    "<method name='Register'><arg type='as' name='domains' direction='in'/></method>"
    "</interface></node>";

struct Registration {
    Client client;
    std::set<std::string> agents;
    guint watch = 0;
};

std::mutex mutex;

// With the mutex held. Never destroyed: the IO thread still serves while the process ends.
std::vector<Registration>& registrations() {
    static auto* instance = new std::vector<Registration>;
    return *instance;
}

int processOf(const char* name) {
    gio::Error fault;
    const gio::Variant answer =
        gio::Bus::session().ask("GetConnectionUnixProcessID", g_variant_new("(s)", name), "(u)", fault);
    guint32 pid = 0;
    if (answer) {
        g_variant_get(answer.get(), "(u)", &pid);
    }
    return static_cast<int>(pid);
}

void forget(GDBusConnection*, const gchar* name, gpointer) noexcept {
    std::lock_guard lock(mutex);
    const auto gone = std::find_if(registrations().begin(), registrations().end(),
                                   [name](const Registration& r) { return r.client.busName == name; });
    if (gone != registrations().end()) {
        g_bus_unwatch_name(gone->watch);
        registrations().erase(gone);
    }
}

// A second registration of the same caller replaces the first.
void remember(const char* name, std::set<std::string> agents) {
    const int pid = processOf(name);
    std::lock_guard lock(mutex);
    for (Registration& known : registrations()) {
        if (known.client.busName == name) {
            known.agents = std::move(agents);
            return;
        }
    }
    const guint watch = g_bus_watch_name_on_connection(
        gio::Bus::session().connection(), name, G_BUS_NAME_WATCHER_FLAGS_NONE, nullptr, forget, nullptr, nullptr);
    registrations().push_back({{name, pid}, std::move(agents), watch});
}

std::set<std::string> textsOf(GVariant* arguments) {
    const gio::Variant list(g_variant_get_child_value(arguments, 0));
    std::set<std::string> texts;
    for (gsize i = 0; i < g_variant_n_children(list.get()); ++i) {
        const gio::Variant text(g_variant_get_child_value(list.get(), i));
        texts.insert(g_variant_get_string(text.get(), nullptr));
    }
    return texts;
}

void onRegister(const char* sender, const char*, GVariant* arguments, GDBusMethodInvocation* invocation) {
    remember(sender, textsOf(arguments));
    g_dbus_method_invocation_return_value(invocation, nullptr);
}

// The name comes last: who waits for it may register at once.
void startServing() {
    const gio::Bus& bus = gio::Bus::session();
    gio::Error error;
    if (!bus.isOpen()) {
        dlog_print(DLOG_WARN, "orvane-voice", "no session bus, so no clients");
    } else if (bus.serve(kPath, kDescription, onRegister) && !bus.own(kName, error)) {
        dlog_print(DLOG_WARN, "orvane-voice", "no clients, as the name %s cannot be had: %s", kName,
                   error ? error.message().c_str() : "another process has it");
    }
}

}  // namespace

void serveClients() {
    static std::once_flag once;
    std::call_once(once, startServing);
}

std::vector<Client> clientsFor(const std::string& agent) {
    std::lock_guard lock(mutex);
    std::vector<Client> clients;
    for (const Registration& registration : registrations()) {
        if (registration.agents.count(agent) != 0) {
            clients.push_back(registration.client);
        }
    }
    return clients;
}

void deliverResult(const Client& client, const std::string& text, const std::string& json) {
    gio::IoThread::get().post([=] {
        g_dbus_connection_call(gio::Bus::session().connection(), client.busName.c_str(), kClientPath, kClientInterface,
                               "Result", g_variant_new("(ss)", text.c_str(), json.c_str()), nullptr,
                               G_DBUS_CALL_FLAGS_NONE, kTimeoutMilliseconds, nullptr, nullptr, nullptr);
    });
}

}  // namespace voice
