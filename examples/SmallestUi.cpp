// SPDX-License-Identifier: Apache-2.0
// The smallest UI application: it reacts to the wake word, prints what the service reports, and acknowledges Ready.
// docs/ui-protocol.md explains the protocol. To build it alone:
//   g++ -std=c++17 SmallestUi.cpp -o smallest-ui $(pkg-config --cflags --libs gio-2.0 dconf)
#include <dconf.h>
#include <fcntl.h>
#include <gio/gio.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include <map>
#include <string>

namespace {

const std::string kBase = "http://orvane.example/appcontrol/operation/";
constexpr char kInterfaces[] =
    "<node><interface name='org.orvane.Application1'>"
    "<method name='Launch'><arg type='s' direction='in'/><arg type='s' direction='in'/>"
    "<arg type='a(aybaay)' direction='in'/><arg type='s' direction='in'/></method>"
    "<method name='Close'/></interface>"
    "<interface name='org.orvane.MessagePort1'>"
    "<method name='HasPort'><arg type='s' direction='in'/><arg type='b' direction='out'/></method>"
    "<method name='Send'><arg type='s' direction='in'/><arg type='a(ayay)' direction='in'/>"
    "<arg type='s' direction='in'/><arg type='s' direction='in'/></method></interface></node>";

using Texts = std::map<std::string, std::string>;

Texts extrasOf(GVariantIter* list) {
    Texts extras;
    const char* key = nullptr;
    const char** values = nullptr;
    gboolean isArray = FALSE;
    while (g_variant_iter_next(list, "(^&ayb^a&ay)", &key, &isArray, &values) != FALSE) {
        g_autofree const char** owned = values;  // the list owns the texts
        extras[key] = owned[0] != nullptr ? owned[0] : "";
    }
    return extras;
}

Texts entriesOf(GVariantIter* list) {
    Texts entries;
    const char* key = nullptr;
    const char* value = nullptr;
    while (g_variant_iter_next(list, "(^&ay^&ay)", &key, &value) != FALSE) {
        entries[key] = value;
    }
    return entries;
}

// Does not wait for the reply: the service reports an error as a state.
void startVoiceEngine(GDBusConnection* bus) {
    const std::string operation = kBase + "start_voice_engine";
    GVariant* request = g_variant_new_parsed(
        "(%s, '', [(b'key_start_mode', false, [b'Default']), (b'current_volume', false, [b'7'])], '')",
        operation.c_str());
    g_dbus_connection_call(bus, "org.orvane.da-service", "/org/orvane/Application", "org.orvane.Application1", "Launch",
                           request, nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr, nullptr, nullptr);
}

// The service waits for this value for up to a second before it continues.
void acknowledgeReady() {
    g_autoptr(GObject) client = G_OBJECT(dconf_client_new());
    g_autoptr(GError) error = nullptr;
    if (dconf_client_write_sync(reinterpret_cast<DConfClient*>(client), "/db/orvane/manager/response",
                                g_variant_new_boolean(TRUE), nullptr, nullptr, &error) == FALSE) {
        fprintf(stderr, "cannot acknowledge Ready: %s\n", error->message);
    }
}

// The text of the result file. Empty if another user may have put it there.
std::string resultText() {
    const int file = open("/tmp/Result_Orvane_json.txt", O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    struct stat status {};
    std::string text;
    if (file >= 0 && fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid()) {
        text.resize(static_cast<std::size_t>(status.st_size));
        const ssize_t size = read(file, text.data(), text.size());
        text.resize(size > 0 ? strnlen(text.data(), static_cast<std::size_t>(size)) : 0);
    }
    if (file >= 0) {
        close(file);
    }
    return text;
}

void showState(Texts& extras) {
    const std::string& state = extras["key_state_change"];
    const std::string& error = extras["key_error_type"];
    printf("state %s %s\n", state.c_str(), error.c_str());
    if (state != "Ready") {
        return;
    }
    if (error == "None") {
        printf("result %s\n", resultText().c_str());
    }
    acknowledgeReady();
}

void onRequest(GDBusConnection* bus, GVariant* arguments) {
    const char* operation = nullptr;
    g_autoptr(GVariantIter) list = nullptr;
    g_variant_get(arguments, "(&s&sa(aybaay)&s)", &operation, nullptr, &list, nullptr);
    Texts extras = extrasOf(list);
    if (operation == kBase + "trigger_shot/voice") {
        printf("wake word\n");
        startVoiceEngine(bus);
    } else if (operation == kBase + "speech_detected") {
        printf("speech detected\n");
    } else if (operation == kBase + "state_change") {
        showState(extras);
    }
}

void onMessage(GVariant* arguments) {
    g_autoptr(GVariantIter) list = nullptr;
    g_variant_get(arguments, "(&sa(ayay)&s&s)", nullptr, &list, nullptr, nullptr);
    Texts entries = entriesOf(list);
    printf("partial \"%s\" final %s\n", entries["key_partial_result"].c_str(), entries["key_is_final_result"].c_str());
}

bool isPartial(GVariant* arguments) {
    g_autoptr(GVariant) port = g_variant_get_child_value(arguments, 0);
    return g_variant_get_string(port, nullptr) == std::string("partial");
}

// The port is trusted: it accepts only processes of the same user.
bool isOurUser(GDBusConnection* bus, const char* sender) {
    g_autoptr(GVariant) answer = g_dbus_connection_call_sync(
        bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetConnectionUnixUser",
        g_variant_new("(s)", sender), G_VARIANT_TYPE("(u)"), G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    guint32 user = 0;
    if (answer != nullptr) {
        g_variant_get(answer, "(u)", &user);
    }
    return answer != nullptr && user == getuid();
}

// Replies before it acts, because the service waits for the reply.
void onCall(GDBusConnection* bus, const char* sender, const char*, const char*, const char* name, GVariant* arguments,
            GDBusMethodInvocation* call, void* loop) noexcept {
    const std::string method = name;
    g_autoptr(GVariant) kept = g_variant_ref(arguments);
    if (!isOurUser(bus, sender)) {
        g_dbus_method_invocation_return_dbus_error(call, "org.freedesktop.DBus.Error.AccessDenied", "another user");
    } else if (method == "HasPort") {
        g_dbus_method_invocation_return_value(call, g_variant_new("(b)", isPartial(kept)));
    } else if (method == "Send" && !isPartial(kept)) {
        g_dbus_method_invocation_return_dbus_error(call, "org.orvane.Error.PortNotFound", "the only port is partial");
    } else {
        g_dbus_method_invocation_return_value(call, nullptr);
        if (method == "Send") {
            onMessage(kept);
        } else if (method == "Launch") {
            onRequest(bus, kept);
        } else {
            g_main_loop_quit(static_cast<GMainLoop*>(loop));
        }
    }
}

void onNameLost(GDBusConnection*, const char* name, void*) noexcept {
    fprintf(stderr, "another process owns %s\n", name);
    exit(EXIT_FAILURE);
}

bool serve(GDBusConnection* bus, GDBusNodeInfo* interfaces, GMainLoop* loop) {
    static const GDBusInterfaceVTable table{onCall, nullptr, nullptr, {}};
    return g_dbus_connection_register_object(bus, "/org/orvane/Application", interfaces->interfaces[0], &table, loop,
                                             nullptr, nullptr) != 0 &&
           g_dbus_connection_register_object(bus, "/org/orvane/MessagePort", interfaces->interfaces[1], &table, loop,
                                             nullptr, nullptr) != 0;
}

}  // namespace

int main() {
    setlinebuf(stdout);
    g_autoptr(GError) error = nullptr;
    g_autoptr(GDBusConnection) bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, &error);
    if (bus == nullptr) {
        fprintf(stderr, "no session bus: %s\n", error->message);
        return EXIT_FAILURE;
    }
    g_autoptr(GDBusNodeInfo) interfaces = g_dbus_node_info_new_for_xml(kInterfaces, nullptr);
    g_autoptr(GMainLoop) loop = g_main_loop_new(nullptr, FALSE);
    if (!serve(bus, interfaces, loop)) {
        return EXIT_FAILURE;
    }
    // Last: other processes may call as soon as the name has an owner.
    g_bus_own_name_on_connection(bus, "org.tizen.orvane-da", G_BUS_NAME_OWNER_FLAGS_DO_NOT_QUEUE, nullptr, onNameLost,
                                 nullptr, nullptr);
    g_main_loop_run(loop);
    g_dbus_connection_flush_sync(bus, nullptr, nullptr);
}
