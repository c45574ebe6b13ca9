// SPDX-License-Identifier: Apache-2.0
#include "fake/voice/FakeCommands.h"

#include <string.h>

#include "fake/Platform.h"

using fake::platform;
using fake::str;

namespace {

vc_cmd_list_s* lastList = nullptr;
int commands = 0;
int lists = 0;

const bool registered = platform().addReset([] {
    lastList = nullptr;
    commands = 0;
    lists = 0;
});

}  // namespace

std::string vc_cmd_list_s::text() const {
    std::string texts;
    for (vc_cmd_h command : commands) {
        texts += (texts.empty() ? "" : ",") + command->text;
    }
    return texts;
}

namespace fake {

std::vector<std::string> commandTexts() {
    std::vector<std::string> texts;
    for (vc_cmd_h command : lastList->commands) {
        texts.push_back(command->text);
    }
    return texts;
}

int openCommands() {
    return commands;
}

int openCommandLists() {
    return lists;
}

}  // namespace fake

extern "C" {

int vc_cmd_create(vc_cmd_h* command) {
    const int result = platform().call("vc_cmd_create");
    if (result == 0) {
        *command = new vc_cmd_s;
        ++commands;
    }
    return result;
}

int vc_cmd_destroy(vc_cmd_h command) {
    --commands;
    delete command;
    return platform().call("vc_cmd_destroy");
}

int vc_cmd_set_command(vc_cmd_h command, const char* text) {
    command->text = text;
    return platform().call("vc_cmd_set_command", {text});
}

int vc_cmd_set_type(vc_cmd_h, vc_cmd_type_e type) {
    return platform().call("vc_cmd_set_type", {str(static_cast<int>(type))});
}

int vc_cmd_set_format(vc_cmd_h, vc_cmd_format_e format) {
    return platform().call("vc_cmd_set_format", {str(static_cast<int>(format))});
}

int vc_cmd_get_pid(vc_cmd_h command, int* pid) {
    const int result = platform().call("vc_cmd_get_pid");
    if (result == 0 && command != nullptr) {
        *pid = command->pid;
    }
    return result;
}

int vc_cmd_get_nlu_json(vc_cmd_h command, char** json) {
    const int result = platform().call("vc_cmd_get_nlu_json");
    if (result == 0 && command != nullptr && command->json) {
        *json = strdup(command->json->c_str());
    }
    return result;
}

int vc_cmd_list_create(vc_cmd_list_h* list) {
    const int result = platform().call("vc_cmd_list_create");
    if (result == 0) {
        *list = new vc_cmd_list_s;
        lastList = *list;
        ++lists;
    }
    return result;
}

int vc_cmd_list_destroy(vc_cmd_list_h list, bool release_command) {
    const int result = platform().call("vc_cmd_list_destroy", {list ? "list" : "null", str(int{release_command})});
    if (list != nullptr) {
        for (vc_cmd_h command : list->commands) {
            delete command;
            --commands;
        }
        delete list;
        --lists;
    }
    return result;
}

int vc_cmd_list_add(vc_cmd_list_h list, vc_cmd_h command) {
    const int result = platform().call("vc_cmd_list_add", {command->text});
    if (result == 0) {
        list->commands.push_back(command);
    }
    return result;
}

int vc_cmd_list_remove(vc_cmd_list_h list, vc_cmd_h command) {
    for (size_t i = 0; i < list->commands.size(); ++i) {
        if (list->commands[i] == command) {
            list->commands.erase(list->commands.begin() + i);
            break;
        }
    }
    return platform().call("vc_cmd_list_remove", {command->text});
}

int vc_cmd_list_first(vc_cmd_list_h list) {
    list->cursor = 0;
    return platform().call("vc_cmd_list_first", {}, list->commands.empty() ? VC_ERROR_EMPTY : VC_ERROR_NONE);
}

int vc_cmd_list_next(vc_cmd_list_h list) {
    if (list->cursor + 1 >= list->commands.size()) {
        return platform().call("vc_cmd_list_next", {}, VC_ERROR_ITERATION_END);
    }
    ++list->cursor;
    return platform().call("vc_cmd_list_next");
}

int vc_cmd_list_get_current(vc_cmd_list_h list, vc_cmd_h* command) {
    if (list->cursor < list->commands.size()) {
        *command = list->commands[list->cursor];
    }
    return platform().call("vc_cmd_list_get_current");
}

}  // extern "C"
