// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <voice_control_common.h>

#include "Util/Log.h"

namespace OrvaneDA {

// The list of commands that the service itself handles, one per domain. Main loop only.
class CommandList {
public:
    CommandList() = default;
    CommandList(const CommandList&) = delete;
    CommandList& operator=(const CommandList&) = delete;

    // Returns whether all commands are in the list. Stops at the first failure, logs it for the caller, and keeps the
    // commands added so far.
    bool create(const Util::Caller& caller = Util::Caller::current());
    // Also destroys the commands. Returns the platform's code.
    int destroy();
    // Null before create and after destroy.
    vc_cmd_list_h handle() const { return mHandle; }

private:
    bool add(const char* text, const Util::Caller& caller);

    vc_cmd_list_h mHandle = nullptr;
};

}  // namespace OrvaneDA
