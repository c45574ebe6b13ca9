// SPDX-License-Identifier: Apache-2.0
#include "Controller/ProfileSession.h"

#include <chrono>

namespace OrvaneDA {

namespace {

constexpr std::chrono::nanoseconds ACCOUNT_TIMEOUT{5'000'000'000};

}  // namespace

// Sends the request with the mutex held, so that no request is sent after close(). The app-control worker outlives the
// refresher.
void ProfileSession::refresh(const std::function<void()>& requestAccount) {
    Lock lock(mMutex);
    mAccount = {};
    if (mClosing) {
        return;
    }
    requestAccount();
    awaitRecords(lock);
    awaitAnswer(lock);
    awaitRecords(lock);
    if (mClosing) {
        return;
    }
    const Account account = mAccount;
    mRecordsTaken = true;
    lock.unlock();
    mRecords.collect(account, [this] { return isClosing(); });
    if (!isClosing()) {
        mRecords.store();
    }
    lock.lock();
    mRecordsTaken = false;
    mChanged.notify_all();
}

void ProfileSession::awaitRecords(Lock& lock) {
    mChanged.wait(lock, [this] { return !mRecordsTaken; });
}

// Only a reply that arrives during the wait ends it. If the reply arrived earlier, its credentials are stored, but the
// wait still lasts its full time.
void ProfileSession::awaitAnswer(Lock& lock) {
    const unsigned before = mAnswers;
    mChanged.wait_until(lock, std::chrono::system_clock::now() + ACCOUNT_TIMEOUT,
                        [&] { return mClosing || mAnswers != before; });
}

void ProfileSession::answer(const Account* account) {
    std::lock_guard<std::mutex> lock(mMutex);
    if (account != nullptr) {
        mAccount = *account;
    }
    ++mAnswers;
    mChanged.notify_all();
}

void ProfileSession::resetBundle() {
    Lock lock(mMutex);
    awaitRecords(lock);
    mRecords.resetBundle();
}

void ProfileSession::close() {
    std::lock_guard<std::mutex> lock(mMutex);
    mClosing = true;
    mChanged.notify_all();
}

bool ProfileSession::isClosing() {
    std::lock_guard<std::mutex> lock(mMutex);
    return mClosing;
}

}  // namespace OrvaneDA
