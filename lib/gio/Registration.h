// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <utility>

#include "gio/Context.h"

namespace gio {

// A subscription, watch, or exported object, which ends when this object is destroyed. Any thread may destroy it, and
// the handler does not run afterward. If the handler itself destroys it, the handler still finishes. Do not destroy it
// while holding a lock that the handler takes.
class Registration {
public:
    Registration() = default;
    Registration(Context context, std::function<void()> end) : mContext(std::move(context)), mEnd(std::move(end)) {}
    Registration(Registration&& other) noexcept { *this = std::move(other); }
    Registration& operator=(Registration&& other) noexcept {
        std::swap(mContext, other.mContext);
        std::swap(mEnd, other.mEnd);
        other.reset();
        return *this;
    }
    ~Registration() { reset(); }

    explicit operator bool() const { return mEnd != nullptr; }
    void reset() {
        if (const auto end = std::exchange(mEnd, nullptr)) {
            mContext.run(end);
        }
    }

private:
    Context mContext = Context::main();
    std::function<void()> mEnd;  // on the context
};

}  // namespace gio
