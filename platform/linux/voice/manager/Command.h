// SPDX-License-Identifier: Apache-2.0
// Commands of the voice-control interface, and lists of commands.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "voice_control_common.h"

struct vc_cmd_s {
    std::string text;
    vc_cmd_type_e type = VC_CMD_TYPE_SYSTEM;
    vc_cmd_format_e format = VC_CMD_FORMAT_DOMAIN;
    std::optional<int> pid;
    std::optional<std::string> json;
};

struct vc_cmd_list_s {
    std::vector<vc_cmd_h> commands;
    std::size_t cursor = 0;
};
