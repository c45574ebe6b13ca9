// SPDX-License-Identifier: Apache-2.0
#include "GatedSpotter.h"

namespace wakeup {

namespace {

constexpr int kHoldMilliseconds = 600;
// Several blocks are decoded at once, so that the model stays in the CPU cache. During speech, this takes 3.7 % of a
// core instead of 4.5 %.
constexpr std::size_t kBatchSamples = 1024;  // 64 ms

}  // namespace

GatedSpotter::GatedSpotter(std::unique_ptr<Spotter> spotter, double speechMarginDb, History history)
    : mSpotter(std::move(spotter)), mHistory(history), mGate(speechMarginDb, kHoldMilliseconds) {}

void GatedSpotter::begin() {
    mGate.close();
    mPending.clear();
    mSearching = false;
}

std::optional<Detection> GatedSpotter::accept(const int16_t* samples, std::size_t count) {
    mPending.insert(mPending.end(), samples, samples + count);
    mDither.apply(mPending.data() + mPending.size() - count, count);
    mGate.accept(mPending.data() + mPending.size() - count, count);
    if (mGate.isOpen()) {
        return decode();
    }
    auto detection = end();
    trimHistory();
    return detection;
}

std::optional<Detection> GatedSpotter::end() {
    if (!mSearching) {
        return std::nullopt;
    }
    mSearching = false;
    return mSpotter->end();
}

std::optional<Detection> GatedSpotter::decode() {
    if (!mSearching) {
        mSpotter->begin();
        mSearching = true;
    }
    if (mPending.size() < kBatchSamples) {
        return std::nullopt;
    }
    auto detection = mSpotter->accept(mPending.data(), mPending.size());
    mPending.clear();
    return detection;
}

void GatedSpotter::trimHistory() {
    if (mPending.size() > 2 * mHistory) {
        mPending.erase(mPending.begin(), mPending.end() - static_cast<std::ptrdiff_t>(mHistory));
    }
}

}  // namespace wakeup
