// SPDX-License-Identifier: Apache-2.0
#include "appliance/environment/Environment.h"

#include <stdlib.h>

#include <map>
#include <string>
#include <vector>

#include "appliance/Names.h"
#include "appliance/environment/Tree.h"

namespace sim {

namespace {

struct App {
    const char* role;
    const char* id;
};

constexpr App kApps[] = {
    {"ui", kUi},
    {"app", kHomeScreen},
    {"music", kMusic},
    {"app", "org.orvane.sim.notes"},
    {"app", "org.orvane.sim.timer"},
    {"recipe", "org.tizen.recipesvc"},
    {"recipe", "org.tizen.webdatabaseserviceapp"},
    {"viewer", kViewer},
    {"account", kAccount},
    {"briefing", kBriefing},
};

void writeBus(const Folder& folder, const std::string& type, const std::string& services) {
    folder.write(type + ".conf",
                 "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\"\n"
                 " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
                 "<busconfig><type>" +
                     type + "</type><listen>unix:path=" + (folder / (type + ".bus")) +
                     "</listen><auth>EXTERNAL</auth>" + services +
                     "<policy context='default'><allow send_destination='*'/><allow own='*'/>"
                     "<allow receive_sender='*'/></policy>"
                     // As on an ordinary session bus.
                     "<limit name='max_message_size'>1000000000</limit>"
                     "<limit name='max_incoming_bytes'>1000000000</limit>"
                     "<limit name='max_outgoing_bytes'>1000000000</limit></busconfig>\n");
}

void writeService(const Folder& folder, const std::string& name, const std::string& command) {
    folder.write("share/dbus-1/services/" + name + ".service",
                 "[D-BUS Service]\nName=" + name + "\nExec=" + command + "\n");
}

void writeApplications(const Folder& folder) {
    const std::string program = builtProgram(kSimulatedApp);
    for (const App& app : kApps) {
        writeService(folder, app.id, program + " " + app.role + " " + app.id);
    }
    writeService(folder, "ca.desrt.dconf", "/usr/libexec/dconf-service");
    const std::string desktop = std::string(kViewer) + ".desktop";
    folder.write("share/applications/" + desktop,
                 "[Desktop Entry]\nType=Application\nName=Viewer\nDBusActivatable=true\nExec=" + program + " viewer " +
                     kViewer + " %u\nMimeType=x-scheme-handler/https;x-scheme-handler/http;\n");
    folder.write("config/mimeapps.list", "[Default Applications]\nx-scheme-handler/https=" + desktop +
                                             "\nx-scheme-handler/http=" + desktop + "\n");
}

void set(const char* name, const std::string& value) {
    setenv(name, value.c_str(), 1);
}

// Removes all variables but these.
void keepOnly(const std::vector<std::string>& names) {
    std::map<std::string, std::string> kept{{"PATH", "/usr/local/bin:/usr/bin:/bin"}};
    for (const std::string& name : names) {
        if (const char* value = getenv(name.c_str())) {
            kept[name] = value;
        }
    }
    clearenv();
    for (const auto& [name, value] : kept) {
        set(name.c_str(), value);
    }
}

}  // namespace

Environment::Environment(const Folder& folder) {
    keepOnly({"PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "TSAN_OPTIONS", "UBSAN_OPTIONS"});
    set("LANG", "C.UTF-8");
    set("HOME", folder.make("home"));
    set("XDG_RUNTIME_DIR", folder.make("runtime"));
    set("XDG_CONFIG_HOME", folder.make("config"));
    set("XDG_DATA_HOME", folder.make("data"));
    set("XDG_CACHE_HOME", folder.make("cache"));
    set("XDG_STATE_HOME", folder.make("state"));
    set("XDG_DATA_DIRS", folder.make("share") + ":/usr/local/share:/usr/share");
    set("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (folder / "session.bus"));
    set("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=" + (folder / "system.bus"));
    set("PULSE_SERVER", "unix:" + (folder / "pulse.socket"));
    set("G_SLICE", "always-malloc");  // as in the unit of the service
    set("ORVANE_LOG", "stderr");      // into the logs in the directory, which tests read, and not into the journal
    set("ORVANE_DATA_ROOT", sourceFolder() + "/data");
    set("ORVANE_SIM_ACCOUNT", folder / "account.json");
    set("ORVANE_SIM_RECORDS", folder.make("records"));
    set("ORVANE_SIM_DUCKER", builtProgram("simulator/fade/orvane-volume-fade"));
    writeApplications(folder);
    writeBus(folder, "session", "<servicedir>" + (folder / "share/dbus-1/services") + "</servicedir>");
    writeBus(folder, "system", "");
}

}  // namespace sim
