// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cstring>
#include <memory>

#include "Command.h"
#include "process/Guard.h"

namespace {

// The command at the cursor, or null.
vc_cmd_h current(const vc_cmd_list_s& list) {
    return list.cursor < list.commands.size() ? list.commands[list.cursor] : nullptr;
}

template <typename Body>
int guarded(const char* function, const Body& body) noexcept {
    return process::guarded(process::Failures<int>{VC_ERROR_OPERATION_FAILED, VC_ERROR_OUT_OF_MEMORY}, function,
                            [&body]() -> int { return body(); });
}

template <typename Owned>
int create(const char* function, Owned** out) noexcept {
    if (!out) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    return guarded(function, [out] {
        *out = std::make_unique<Owned>().release();
        return VC_ERROR_NONE;
    });
}

}  // namespace

extern "C" {

int vc_cmd_create(vc_cmd_h* command) {
    return create<vc_cmd_s>(__func__, command);
}

int vc_cmd_destroy(vc_cmd_h command) {
    const std::unique_ptr<vc_cmd_s> owned(command);
    return owned ? VC_ERROR_NONE : VC_ERROR_INVALID_PARAMETER;
}

int vc_cmd_set_command(vc_cmd_h command, const char* text) {
    if (!command || !text) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    return guarded(__func__, [=] {
        command->text = text;
        return VC_ERROR_NONE;
    });
}

int vc_cmd_set_type(vc_cmd_h command, vc_cmd_type_e type) {
    if (!command) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    command->type = type;
    return VC_ERROR_NONE;
}

int vc_cmd_set_format(vc_cmd_h command, vc_cmd_format_e format) {
    if (!command) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    command->format = format;
    return VC_ERROR_NONE;
}

int vc_cmd_get_pid(vc_cmd_h command, int* pid) {
    if (!command || !pid) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    if (!command->pid) {
        return VC_ERROR_EMPTY;
    }
    *pid = *command->pid;
    return VC_ERROR_NONE;
}

int vc_cmd_get_nlu_json(vc_cmd_h command, char** json) {
    if (!command || !json) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    *json = command->json ? strdup(command->json->c_str()) : nullptr;
    return command->json && !*json ? VC_ERROR_OUT_OF_MEMORY : VC_ERROR_NONE;
}

int vc_cmd_list_create(vc_cmd_list_h* list) {
    return create<vc_cmd_list_s>(__func__, list);
}

int vc_cmd_list_destroy(vc_cmd_list_h list, bool release_command) {
    const std::unique_ptr<vc_cmd_list_s> owned(list);
    if (!owned) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    if (release_command) {
        std::for_each(owned->commands.begin(), owned->commands.end(), vc_cmd_destroy);
    }
    return VC_ERROR_NONE;
}

int vc_cmd_list_add(vc_cmd_list_h list, vc_cmd_h command) {
    if (!list || !command) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    return guarded(__func__, [=] {
        list->commands.push_back(command);
        return VC_ERROR_NONE;
    });
}

int vc_cmd_list_remove(vc_cmd_list_h list, vc_cmd_h command) {
    if (!list || !command) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    auto& commands = list->commands;
    const auto found = std::find(commands.begin(), commands.end(), command);
    if (found == commands.end()) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    // The cursor stays at its command, or moves to the next one if its command is removed.
    if (static_cast<std::size_t>(found - commands.begin()) < list->cursor) {
        --list->cursor;
    }
    commands.erase(found);
    return VC_ERROR_NONE;
}

int vc_cmd_list_first(vc_cmd_list_h list) {
    if (!list) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    list->cursor = 0;
    return list->commands.empty() ? VC_ERROR_EMPTY : VC_ERROR_NONE;
}

int vc_cmd_list_next(vc_cmd_list_h list) {
    if (!list) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    if (list->cursor + 1 >= list->commands.size()) {
        return VC_ERROR_ITERATION_END;
    }
    ++list->cursor;
    return VC_ERROR_NONE;
}

int vc_cmd_list_get_current(vc_cmd_list_h list, vc_cmd_h* command) {
    if (!list || !command) {
        return VC_ERROR_INVALID_PARAMETER;
    }
    *command = current(*list);
    return *command ? VC_ERROR_NONE : VC_ERROR_EMPTY;
}
}
