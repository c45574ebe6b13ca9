// SPDX-License-Identifier: Apache-2.0
#include "process/FaultLog.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <mutex>

namespace process {

namespace {

constexpr std::chrono::seconds kFirstInterval{1};
constexpr std::chrono::hours kLongestInterval{1};
constexpr std::chrono::hours kForgotten{2};  // without an occurrence

struct OfThisProcess {
    std::mutex mutex;
    Recurrences faults;
};

// Never destroyed, because detached threads may log until the process exits.
OfThisProcess& ofThisProcess() {
    static OfThisProcess& only = *std::make_unique<OfThisProcess>().release();
    return only;
}

std::string hiddenText(Recurrence::Count hidden) {
    return hidden == 0 ? "" : " (and " + std::to_string(hidden) + " more times since the last such line)";
}

}  // namespace

bool Recurrence::isNew(Clock::time_point now) const {
    return mInterval == Clock::duration::zero() || (mEnd && now >= *mEnd) || now - mLast >= kForgotten;
}

std::optional<Recurrence::Count> Recurrence::occurred(Clock::time_point now) {
    const bool first = isNew(now);
    mLast = now;
    mEnd.reset();
    if (!first && now - mShown < mInterval) {
        ++mHidden;
        return std::nullopt;
    }
    mInterval = first ? kFirstInterval : std::min<Clock::duration>(2 * mInterval, kLongestInterval);
    mShown = now;
    return std::exchange(mHidden, 0);
}

void Recurrence::endsAt(Clock::time_point time) {
    if (!mEnd) {
        mEnd = time;
    }
}

std::optional<Recurrence::Count> Recurrences::occurred(const std::string& operation, const std::string& fault,
                                                       Recurrence::Clock::time_point now) {
    const auto known = mFaults.find({operation, fault});
    if (known != mFaults.end()) {
        return known->second.occurred(now);
    }
    if (mFaults.size() == kMost) {
        forgetOldest();
    }
    return mFaults[{operation, fault}].occurred(now);
}

void Recurrences::endAt(const std::string& operation, Recurrence::Clock::time_point time) {
    for (auto fault = mFaults.lower_bound({operation, ""}); fault != mFaults.end() && fault->first.first == operation;
         ++fault) {
        fault->second.endsAt(time);
    }
}

void Recurrences::forgetOldest() {
    mFaults.erase(std::min_element(mFaults.begin(), mFaults.end(), [](const auto& one, const auto& other) {
        return one.second.last() < other.second.last();
    }));
}

bool logFault(log_priority priority, const char* tag, const std::string& operation, const std::string& text) noexcept {
    std::string hidden;
    try {
        auto& all = ofThisProcess();
        const std::lock_guard lock(all.mutex);
        const auto count = all.faults.occurred(operation, text, Recurrence::Clock::now());
        if (!count) {
            return false;
        }
        hidden = hiddenText(*count);
    } catch (const std::exception&) {  // out of memory: logs the line without the count
    }
    dlog_print(priority, tag, "%s%s", text.c_str(), hidden.c_str());
    return true;
}

void faultEnded(const std::string& operation, std::chrono::seconds proof) noexcept {
    try {
        auto& all = ofThisProcess();
        const std::lock_guard lock(all.mutex);
        all.faults.endAt(operation, Recurrence::Clock::now() + proof);
    } catch (const std::exception&) {  // out of memory: the fault counts as the same if it returns
    }
}

}  // namespace process
