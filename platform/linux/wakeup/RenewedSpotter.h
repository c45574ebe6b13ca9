// SPDX-License-Identifier: Apache-2.0
// Replaces a failed spotter when the next search begins, because a failed spotter may be unusable. Shows the failure in
// the service's problems until then.
#pragma once

#include <functional>
#include <memory>

#include "Spotter.h"
#include "process/Owner.h"
#include "status/Problems.h"

namespace wakeup {

class RenewedSpotter final : public Spotter {
public:
    using Make = std::function<std::unique_ptr<Spotter>()>;

    // Makes the first spotter, and throws what `make` throws.
    explicit RenewedSpotter(Make make);

    void begin() override;
    std::optional<Detection> accept(const int16_t* samples, std::size_t count) override;
    std::optional<Detection> end() override;

private:
    template <typename Call>
    auto call(const Call& function);

    const Make mMake;
    status::Problems& mProblems = process::shared<status::Problems>();
    std::unique_ptr<Spotter> mSpotter;  // null after a failure
};

}  // namespace wakeup
