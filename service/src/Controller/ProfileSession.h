// SPDX-License-Identifier: Apache-2.0
// The state that the workers of one refresher share. The refresher and its workers share ownership, so the last owner
// closes the hub connection and the database.
//
// One mutex guards the state, and one condition variable signals its changes. A worker does not hold the mutex while it
// fetches and stores: it marks the records as taken, releases the mutex, and then has exclusive use of them. At all
// other times, the mutex guards the records too.
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>

#include "Controller/ProfileRecords.h"

namespace OrvaneDA {

class ProfileSession {
public:
    // Worker only. Sends the account request, waits for its reply for at most 5 s, then fetches and stores the users.
    // Several workers may wait for a reply, but they fetch one at a time. `requestAccount` must not block.
    void refresh(const std::function<void()>& requestAccount);
    // Passes on the reply of the account service; null if it contains no credentials.
    void answer(const Account* account);
    // Frees the records. Waits for a refresh in progress.
    void resetBundle();
    // From now on, no worker sends a request. A refresh in progress stops after its current call and stores nothing.
    void close();

private:
    using Lock = std::unique_lock<std::mutex>;

    void awaitRecords(Lock& lock);
    void awaitAnswer(Lock& lock);
    bool isClosing();

    std::mutex mMutex;                 // guards all fields below
    std::condition_variable mChanged;  // notified by every reply, by the release of the records, and by close()
    Account mAccount;                  // from the last reply
    unsigned mAnswers = 0;             // replies so far
    bool mClosing = false;
    bool mRecordsTaken = false;  // a worker uses mRecords without the mutex
    ProfileRecords mRecords;
};

}  // namespace OrvaneDA
