// SPDX-License-Identifier: Apache-2.0
// What the refresh workers of one refresher share. The refresher and each worker own it together, so the last of them
// closes the hub connection and the database.
//
// One mutex guards the state, and one condition variable reports each change of it. The mutex is never held while the
// hub or the database is called: a worker marks the records as taken, releases the mutex, and works on them alone.
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>

#include "Controller/ProfileRecords.h"

namespace OrvaneDA {

class ProfileSession {
public:
    // On a worker. Sends the account request, waits for its reply for at most 5 s, then fetches and stores the users.
    // Several workers may wait for a reply; they fetch one after the other. `requestAccount` must not block.
    void refresh(const std::function<void()>& requestAccount);
    // The account service replied; null if it sent no credentials.
    void answer(const Account* account);
    // Frees the records; waits for a refresh that is under way.
    void resetBundle();
    // Afterwards no request is sent, and a refresh that is under way ends with its current call, without storing.
    void close();

private:
    using Lock = std::unique_lock<std::mutex>;

    void awaitRecords(Lock& lock);
    void awaitAnswer(Lock& lock);
    bool isClosing();

    std::mutex mMutex;                 // guards all fields below
    std::condition_variable mChanged;  // notified at every reply, when the records are free again, and by close()
    Account mAccount;                  // from the last reply
    unsigned mAnswers = 0;             // replies so far
    bool mClosing = false;
    bool mRecordsTaken = false;  // by a worker, which then uses mRecords without the mutex
    ProfileRecords mRecords;
};

}  // namespace OrvaneDA
