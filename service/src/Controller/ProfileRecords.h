// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <glib.h>
#include <kelso_server.h>
#include <orvane_da_db.h>

#include <functional>
#include <string>

#include "Util/Log.h"

namespace OrvaneDA {

// Credentials for the hub, from the account service.
struct Account {
    std::string guid;
    std::string accessToken;
    std::string clientId;
    std::string serverUri;

    bool isComplete() const;
};

// The household's users. Fetches them from the hub, keeps them as records, and stores them in the local database. One
// thread at a time; collect() and store() block on the network and the database.
class ProfileRecords {
public:
    ProfileRecords();
    ~ProfileRecords();
    ProfileRecords(const ProfileRecords&) = delete;
    ProfileRecords& operator=(const ProfileRecords&) = delete;

    // Replaces the records with the users of every family. Stops after a failure, or when `isCanceled`, which it calls
    // between requests, returns true; it then keeps the records fetched so far.
    void collect(const Account& account, const std::function<bool()>& isCanceled,
                 const Util::Caller& caller = Util::Caller::current());
    // Replaces the stored users with the records.
    void store();
    // Frees the records but not the stored users.
    void resetBundle();

private:
    bool collectFamily(const char* familyId, const Util::Caller& caller);

    ks_server_h mHubServer = nullptr;
    vrd_manager_h mDatabase = nullptr;
    GList* mBundles = nullptr;  // of vrd_bundle_h
};

}  // namespace OrvaneDA
