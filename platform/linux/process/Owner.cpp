// SPDX-License-Identifier: Apache-2.0
#include "process/Owner.h"

#include <chrono>

namespace process {

namespace {

constexpr std::chrono::seconds kPatience{1};
constexpr unsigned kEnded = 1;
constexpr unsigned kCall = 2;

thread_local Call* current = nullptr;

}  // namespace

// The owner itself is never destroyed: a detached thread may still call it while the process exits, and then gets
// Ended. endOfProcess() destroys everything that it owns.
Owner& Owner::instance() {
    static Owner& owner = *std::make_unique<Owner>().release();
    return owner;
}

namespace {

// Runs after the destructors of all static objects, which may still use the owner.
[[gnu::destructor]] void endOfProcess() {
    Owner::instance().end();
}

}  // namespace

void Owner::enter() {
    if (!current || current->mOwner) {
        return;
    }
    unsigned calls = mCalls;
    do {
        if (calls & kEnded) {
            throw Ended();
        }
    } while (!mCalls.compare_exchange_weak(calls, calls + kCall));
    current->mOwner = this;
}

void Owner::leave() noexcept {
    unsigned calls = mCalls;
    while (!(calls & kEnded)) {
        if (mCalls.compare_exchange_weak(calls, calls - kCall)) {
            return;
        }
    }
    // Under the lock, because the owner may be gone as soon as end() sees that no call is left.
    const std::lock_guard lock(mMutex);
    mCalls -= kCall;
    mLeft.notify_all();
}

Owner::Slot& Owner::slotOf(std::type_index type) {
    const std::lock_guard lock(mMutex);
    return mSlots[type];
}

void Owner::throwIfEnded() {
    if (mCalls == kEnded) {
        throw Ended();
    }
}

void Owner::add(Slot& slot) {
    const std::lock_guard lock(mMutex);
    mCreated.push_back(&slot);
}

void Owner::end() noexcept {
    std::unique_lock lock(mMutex);
    mCalls |= kEnded;
    if (!mLeft.wait_for(lock, kPatience, [this] { return mCalls == kEnded; })) {
        return;
    }
    const std::vector<Slot*> running = mCreated;
    lock.unlock();
    for (auto slot = running.rbegin(); slot != running.rend(); ++slot) {
        (*slot)->stop((*slot)->object.get());
    }
    // From here on, no other thread creates or uses an object.
    while (!mCreated.empty()) {
        Slot* const newest = mCreated.back();
        mCreated.pop_back();
        newest->existing = nullptr;
        newest->object.reset();
    }
}

Call::Call() : mOutermost(current == nullptr) {
    if (mOutermost) {
        current = this;
    }
}

Call::~Call() {
    if (mOutermost) {
        current = nullptr;
    }
    if (mOwner) {
        mOwner->leave();
    }
}

}  // namespace process
