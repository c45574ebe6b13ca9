// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <fstream>
#include <string>

// The dbus-daemon option for a session bus that other users may join, so that only the message ports themselves can
// refuse them. Adds `rules` to the configuration, which it writes into the directory.
inline std::string openBus(const std::string& folder, const std::string& rules = "") {
    const std::string file = folder + "/bus.conf";
    std::ofstream(file)
        << "<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen><auth>EXTERNAL</auth>"
           "<standard_session_servicedirs/><policy context=\"default\"><allow user=\"*\"/>"
           "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/><allow own=\"*\"/>"
        << rules << "</policy></busconfig>";
    return "--config-file=" + file;
}
