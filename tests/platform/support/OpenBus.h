// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <fstream>
#include <string>

// The dbus-daemon option for a session bus that other users may join.
inline std::string openBus() {
    return "--config-file=" OPEN_BUS;
}

// The same with further rules, in a file that it writes into the directory.
inline std::string openBus(const std::string& folder, const std::string& rules) {
    const std::string file = folder + "/bus.conf";
    std::ofstream(file) << "<busconfig><include>" OPEN_BUS "</include><policy context=\"default\">" << rules
                        << "</policy></busconfig>";
    return "--config-file=" + file;
}
