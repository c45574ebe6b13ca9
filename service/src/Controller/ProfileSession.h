#pragma once

#include <glib.h>
#include <kelso_server.h>
#include <orvane_da_db.h>

#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>

namespace OrvaneDA {

// Credentials for the hub server, as the account service gave them.
struct Account {
    std::string guid;
    std::string accessToken;
    std::string clientId;
    std::string serverUri;

    bool isComplete() const;
};

// The hub server's session, the database and the records of the last refresh.
class ProfileSession {
public:
    ProfileSession();
    ~ProfileSession() = default;
    ProfileSession(const ProfileSession&) = delete;
    ProfileSession& operator=(const ProfileSession&) = delete;

    // The refresher is going: closes hub server and database, now or with the last worker's end. No request is sent
    // afterwards, and a refresh under way ends with the call that it is at, without storing.
    void close();

    // Workers. begin() is false when the session is closing.
    bool begin();
    void end();
    // Sends the account request, waits for its answer or 5 s, fetches and stores.
    void refresh(const std::function<void()>& requestAccount);

    // Frees the records; waits for a refresh that is under way.
    void forgetRecords();

    // The account service's answer; null when it brought no credentials.
    void answer(const Account* account);

private:
    bool send(const std::function<void()>& requestAccount);
    bool isClosing();
    bool awaitAnswer(std::unique_lock<std::mutex>& turn);  // false when the session is closing
    void resetBundle();
    void collect();
    bool collectFamily(const char* familyId);
    void release();
    Account account();
    void setAccount(const Account& account);

    ks_server_h mHubServer = nullptr;
    vrd_manager_h mDatabase = nullptr;
    GList* mBundles = nullptr;  // of vrd_bundle_h
    std::mutex mMutex;          // held by the worker that refreshes
    std::condition_variable mAnswered;
    std::mutex mAccountMutex;  // the answer comes while a worker may look
    Account mAccount;
    std::mutex mWorkersMutex;  // guards the two below
    int mWorkers = 0;
    bool mClosing = false;
};

}  // namespace OrvaneDA
