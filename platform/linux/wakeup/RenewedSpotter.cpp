// SPDX-License-Identifier: Apache-2.0
#include "RenewedSpotter.h"

#include <exception>
#include <stdexcept>
#include <utility>

#include "WakeupConfig.h"

namespace wakeup {

namespace {

constexpr auto kPart = status::Problems::Part::WakeEngine;

}  // namespace

RenewedSpotter::RenewedSpotter(Make make) : mMake(std::move(make)), mSpotter(mMake()) {}

template <typename Call>
auto RenewedSpotter::call(const Call& function) {
    try {
        return function(*mSpotter);
    } catch (const std::exception& fault) {
        mProblems.set(kPart, std::string("No wake engine: ") + fault.what());
        mSpotter.reset();
        throw;
    }
}

void RenewedSpotter::begin() {
    if (!mSpotter) {
        try {
            mSpotter = mMake();
        } catch (const ConfigFault& fault) {  // the engine's thread expects std::exception
            throw std::runtime_error(fault.detail);
        }
    }
    call([](Spotter& spotter) { spotter.begin(); });
    mProblems.set(kPart, "");
}

std::optional<Detection> RenewedSpotter::accept(const int16_t* samples, std::size_t count) {
    return call([&](Spotter& spotter) { return spotter.accept(samples, count); });
}

std::optional<Detection> RenewedSpotter::end() {
    return call([](Spotter& spotter) { return spotter.end(); });
}

}  // namespace wakeup
