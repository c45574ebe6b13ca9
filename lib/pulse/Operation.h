// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <memory>

#include "pulse/Mainloop.h"

namespace pulse {

// Owns a request to the sound server with its callback. Destroying it does not cancel the request, but the callback no
// longer runs. Created and destroyed under the loop's lock.
class Operation {
public:
    Operation() = default;
    // Null if the request could not be sent.
    explicit Operation(pa_operation* owned, std::shared_ptr<void> callback = nullptr)
        : mCallback(std::move(callback)), mOperation(owned) {}

    explicit operator bool() const { return mOperation != nullptr; }
    pa_operation* get() const { return mOperation.get(); }

private:
    struct Cancel {
        void operator()(pa_operation* operation) const noexcept {
            pa_operation_cancel(operation);
            pa_operation_unref(operation);
        }
    };

    std::shared_ptr<void> mCallback;
    std::unique_ptr<pa_operation, Cancel> mOperation;
};

// Waits for the answer. Call it without the loop's lock, and not on the loop's thread. False if the connection breaks
// or the wait times out.
bool finish(const Mainloop& loop, Operation operation, std::chrono::milliseconds limit);

}  // namespace pulse
