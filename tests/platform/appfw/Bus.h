// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <fstream>
#include <string>

// The option of dbus-daemon for a session bus that other users may join too, so that the ports' own rule is what keeps
// them out; `rules` are added. Its file is in the folder.
inline std::string openBus(const std::string& folder, const std::string& rules = "") {
    const std::string file = folder + "/bus.conf";
    std::ofstream(file)
        << "<busconfig><type>session</type><listen>unix:tmpdir=/tmp</listen><auth>EXTERNAL</auth>"
           "<standard_session_servicedirs/><policy context=\"default\"><allow user=\"*\"/>"
           "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/><allow own=\"*\"/>"
        << rules << "</policy></busconfig>";
    return "--config-file=" + file;
}
