#include "Controller/ProfileSession.h"

#include <stdlib.h>

#include <chrono>
#include <memory>

#include "Util/Log.h"

namespace OrvaneDA {

namespace {

constexpr std::chrono::nanoseconds ACCOUNT_TIMEOUT{5'000'000'000};

struct FreeRecords {
    void operator()(GSList* list) const noexcept { g_slist_free_full(list, free); }
};
using Records = std::unique_ptr<GSList, FreeRecords>;

}  // namespace

bool Account::isComplete() const {
    return !clientId.empty() && !accessToken.empty() && !guid.empty() && !serverUri.empty();
}

ProfileSession::ProfileSession() {
    ks_server_create(&mHubServer);
    vrd_manager_create(&mDatabase, "Profile");
}

void ProfileSession::close() {
    {
        std::lock_guard<std::mutex> lock(mWorkersMutex);
        mClosing = true;
        if (mWorkers > 0) {
            mAnswered.notify_all();
            return;
        }
    }
    release();
}

bool ProfileSession::begin() {
    std::lock_guard<std::mutex> lock(mWorkersMutex);
    if (mClosing) {
        return false;
    }
    ++mWorkers;
    return true;
}

void ProfileSession::end() {
    {
        std::lock_guard<std::mutex> lock(mWorkersMutex);
        if (--mWorkers > 0 || !mClosing) {
            return;
        }
    }
    release();
}

void ProfileSession::release() {
    if (mHubServer != nullptr) {
        ks_server_destroy(mHubServer);
    }
    if (mBundles != nullptr) {
        resetBundle();
    }
    if (mDatabase != nullptr) {
        vrd_manager_destroy(mDatabase);
    }
}

Account ProfileSession::account() {
    std::lock_guard<std::mutex> lock(mAccountMutex);
    return mAccount;
}

void ProfileSession::setAccount(const Account& account) {
    std::lock_guard<std::mutex> lock(mAccountMutex);
    mAccount = account;
}

void ProfileSession::answer(const Account* account) {
    if (account != nullptr) {
        setAccount(*account);
    }
    mAnswered.notify_all();
}

// Sent only before close() returns: at the process's end the application-control worker goes after the refresher.
bool ProfileSession::send(const std::function<void()>& requestAccount) {
    std::lock_guard<std::mutex> lock(mWorkersMutex);
    if (mClosing) {
        return false;
    }
    requestAccount();
    return true;
}

bool ProfileSession::isClosing() {
    std::lock_guard<std::mutex> lock(mWorkersMutex);
    return mClosing;
}

// One wait, whatever ends it: an answer that came before it leaves its credentials, and the wait its full time. It
// waits under the workers' mutex, so that it does not miss close(); other workers may go on meanwhile.
bool ProfileSession::awaitAnswer(std::unique_lock<std::mutex>& turn) {
    std::unique_lock<std::mutex> workers(mWorkersMutex);
    turn.unlock();
    if (!mClosing) {
        mAnswered.wait_until(workers, std::chrono::system_clock::now() + ACCOUNT_TIMEOUT);
    }
    const bool closing = mClosing;
    workers.unlock();
    turn.lock();
    return !closing;
}

// The stored users stay as they are when the service ends in the middle of a refresh.
void ProfileSession::refresh(const std::function<void()>& requestAccount) {
    setAccount({});
    if (!send(requestAccount)) {
        return;
    }
    std::unique_lock<std::mutex> lock(mMutex);
    if (!awaitAnswer(lock)) {
        return;
    }
    if (mBundles != nullptr) {
        resetBundle();
    }
    collect();
    if (!isClosing()) {
        vrd_manager_private_update(mDatabase, mBundles);
    }
}

void ProfileSession::forgetRecords() {
    std::lock_guard<std::mutex> lock(mMutex);
    resetBundle();
}

void ProfileSession::resetBundle() {
    LOGD("");
    for (GList* node = mBundles; node != nullptr; node = node->next) {
        vrd_bundle_destroy(static_cast<vrd_bundle_h>(node->data));
    }
    g_list_free(mBundles);
    mBundles = nullptr;
}

void ProfileSession::collect() {
    const Account credentials = account();
    if (!credentials.isComplete()) {
        LOGE("Failed to get quorbit account");
        return;
    }
    if (ks_server_sa_account_set(mHubServer, credentials.guid.c_str(), credentials.accessToken.c_str(),
                                 credentials.clientId.c_str(), credentials.serverUri.c_str()) != KS_SERVER_OK) {
        LOGE("Failed to set quorbit account");
        return;
    }
    if (isClosing()) {
        return;
    }
    GSList* list = nullptr;
    const int result = ks_server_profile_families_get(mHubServer, &list);
    const Records families(list);
    if (result != KS_SERVER_OK) {
        LOGE("failed to get family list from server: %d", result);
        return;
    }
    for (GSList* node = families.get(); node != nullptr; node = node->next) {
        if (isClosing() || !collectFamily(static_cast<ks_family_s*>(node->data)->family_id)) {
            return;
        }
    }
}

bool ProfileSession::collectFamily(const char* familyId) {
    GSList* list = nullptr;
    const int result = ks_server_profile_families_family_users_get(mHubServer, familyId, &list);
    const Records users(list);
    if (result != KS_SERVER_OK) {
        LOGE("failed to get user list from server: %d", result);
        return false;
    }
    for (GSList* node = users.get(); node != nullptr; node = node->next) {
        const auto* user = static_cast<ks_family_user_s*>(node->data);
        vrd_bundle_h record = nullptr;
        vrd_bundle_create(&record);
        vrd_bundle_add_str(record, "userId", user->user_id);
        vrd_bundle_add_str(record, "userName", user->user_name);
        mBundles = g_list_append(mBundles, record);
    }
    return true;
}

}  // namespace OrvaneDA
