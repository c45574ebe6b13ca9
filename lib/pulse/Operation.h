// SPDX-License-Identifier: Apache-2.0
// Owns a request to the sound server that is under way.
#pragma once

#include <chrono>
#include <memory>

#include "pulse/Mainloop.h"

namespace pulse {

struct OperationUnref {
    void operator()(pa_operation* operation) const noexcept { pa_operation_unref(operation); }
};
using Operation = std::unique_ptr<pa_operation, OperationUnref>;

// Waits for the answer, without the loop's lock; never on the loop's thread. When the connection breaks or the time is
// up it gives up and answers false: from then on the operation's callback is not called any more.
bool finish(const Mainloop& loop, Operation operation, std::chrono::milliseconds limit);

}  // namespace pulse
