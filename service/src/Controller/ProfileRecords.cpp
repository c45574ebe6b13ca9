// SPDX-License-Identifier: Apache-2.0
#include "Controller/ProfileRecords.h"

#include <stdlib.h>

#include <memory>

namespace OrvaneDA {

namespace {

struct FreeRecords {
    void operator()(GSList* list) const noexcept { g_slist_free_full(list, free); }
};
using Records = std::unique_ptr<GSList, FreeRecords>;

vrd_bundle_h bundleOf(const ks_family_user_s& user) {
    vrd_bundle_h bundle = nullptr;
    vrd_bundle_create(&bundle);
    vrd_bundle_add_str(bundle, "userId", user.user_id);
    vrd_bundle_add_str(bundle, "userName", user.user_name);
    return bundle;
}

}  // namespace

bool Account::isComplete() const {
    return !clientId.empty() && !accessToken.empty() && !guid.empty() && !serverUri.empty();
}

ProfileRecords::ProfileRecords() {
    ks_server_create(&mHubServer);
    vrd_manager_create(&mDatabase, "Profile");
}

ProfileRecords::~ProfileRecords() {
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

void ProfileRecords::resetBundle() {
    LOGD("");
    for (GList* node = mBundles; node != nullptr; node = node->next) {
        vrd_bundle_destroy(static_cast<vrd_bundle_h>(node->data));
    }
    g_list_free(mBundles);
    mBundles = nullptr;
}

void ProfileRecords::collect(const Account& account, const std::function<bool()>& isCanceled,
                             const Util::Caller& caller) {
    if (mBundles != nullptr) {
        resetBundle();
    }
    if (!account.isComplete()) {
        LOGE_FOR(caller, "Failed to get quorbit account");
        return;
    }
    const int signedIn = ks_server_sa_account_set(mHubServer, account.guid.c_str(), account.accessToken.c_str(),
                                                  account.clientId.c_str(), account.serverUri.c_str());
    if (!Util::succeededOrLogged(signedIn, "Failed to set quorbit account", caller) || isCanceled()) {
        return;
    }
    GSList* list = nullptr;
    const int result = ks_server_profile_families_get(mHubServer, &list);
    const Records families(list);
    if (result != KS_SERVER_OK) {
        LOGE_FOR(caller, "failed to get family list from server: %d", result);
        return;
    }
    for (GSList* node = families.get(); node != nullptr; node = node->next) {
        if (isCanceled() || !collectFamily(static_cast<ks_family_s*>(node->data)->family_id, caller)) {
            return;
        }
    }
}

bool ProfileRecords::collectFamily(const char* familyId, const Util::Caller& caller) {
    GSList* list = nullptr;
    const int result = ks_server_profile_families_family_users_get(mHubServer, familyId, &list);
    const Records users(list);
    if (result != KS_SERVER_OK) {
        LOGE_FOR(caller, "failed to get user list from server: %d", result);
        return false;
    }
    for (GSList* node = users.get(); node != nullptr; node = node->next) {
        mBundles = g_list_append(mBundles, bundleOf(*static_cast<ks_family_user_s*>(node->data)));
    }
    return true;
}

void ProfileRecords::store() {
    vrd_manager_private_update(mDatabase, mBundles);
}

}  // namespace OrvaneDA
