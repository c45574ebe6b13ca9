// SPDX-License-Identifier: Apache-2.0
#include "Controller/Voice/CommandList.h"

#include <memory>

namespace OrvaneDA {

namespace {

struct DestroyCommand {
    void operator()(vc_cmd_s* command) const noexcept { vc_cmd_destroy(command); }
};

}  // namespace

bool CommandList::create(const Util::Caller& caller) {
    if (!Util::succeededOrLogged(vc_cmd_list_create(&mHandle), "[ERROR] Fail to cmd list create", caller)) {
        return false;
    }
    for (const char* text : {"#org.tizen.weather", "#org.tizen.clock", "#org.tizen.launch apps", "#org.tizen.system",
                             "#org.tizen.websearch"}) {
        if (!add(text, caller)) {
            return false;
        }
    }
    return true;
}

bool CommandList::add(const char* text, const Util::Caller& caller) {
    vc_cmd_h created = nullptr;
    if (!Util::succeededOrLogged(vc_cmd_create(&created), "[ERROR] Fail to cmd create", caller)) {
        return false;
    }
    std::unique_ptr<vc_cmd_s, DestroyCommand> command(created);
    if (!Util::succeededOrLogged(vc_cmd_set_command(created, text), "[ERROR] Fail to set command", caller) ||
        !Util::succeededOrLogged(vc_cmd_set_type(created, VC_CMD_TYPE_SYSTEM), "[ERROR] Fail to set type", caller) ||
        !Util::succeededOrLogged(vc_cmd_set_format(created, VC_CMD_FORMAT_DOMAIN), "[ERROR] Fail to set format",
                                 caller) ||
        !Util::succeededOrLogged(vc_cmd_list_add(mHandle, created), "[ERROR] Fail to list add", caller)) {
        return false;
    }
    static_cast<void>(command.release());  // the list owns it now
    return true;
}

int CommandList::destroy() {
    const int result = vc_cmd_list_destroy(mHandle, true);
    mHandle = nullptr;
    return result;
}

}  // namespace OrvaneDA
