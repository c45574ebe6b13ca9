// SPDX-License-Identifier: Apache-2.0
// The output of a program on the appliance.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "appliance/Appliance.h"

inline std::string output(const sim::Appliance& appliance, const std::vector<std::string>& words) {
    const std::string file = appliance.folder() / "output";
    std::filesystem::remove(file);
    sim::Process(words, file).wait();
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}
