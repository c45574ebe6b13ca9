// SPDX-License-Identifier: Apache-2.0
// Commands of the voice-control manager, and lists of them.
#pragma once

#include <voice_control_common.h>

#include <optional>
#include <string>
#include <vector>

struct vc_cmd_s {
    std::string text;
    int pid = -1;
    std::optional<std::string> json;
};

struct vc_cmd_list_s {
    std::vector<vc_cmd_h> commands;
    size_t cursor = 0;

    std::string text() const;  // the commands' texts, separated by commas
};

namespace fake {

// The texts of the list that the product created last.
std::vector<std::string> commandTexts();
// Commands and lists that the product created and has not destroyed.
int openCommands();
int openCommandLists();

}  // namespace fake
