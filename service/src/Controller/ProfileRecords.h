// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <glib.h>
#include <kelso_server.h>
#include <orvane_da_db.h>

#include <functional>
#include <string>

#include "Util/Log.h"

namespace OrvaneDA {

// Credentials for the hub server, as the account service sent them.
struct Account {
    std::string guid;
    std::string accessToken;
    std::string clientId;
    std::string serverUri;

    bool isComplete() const;
};

// The household's users: fetched from the hub server, kept as records, stored in the local database.
// One thread at a time; collect() and store() block for the network and the database.
class ProfileRecords {
public:
    ProfileRecords();
    ~ProfileRecords();
    ProfileRecords(const ProfileRecords&) = delete;
    ProfileRecords& operator=(const ProfileRecords&) = delete;

    // Replaces the records by the users of every family. A failure ends it and keeps what was fetched before; so does
    // `isCanceled`, which is asked between two requests.
    void collect(const Account& account, const std::function<bool()>& isCanceled,
                 const Util::Caller& caller = Util::Caller::current());
    // Replaces the stored users by the records.
    void store();
    // Frees the records; the stored users stay.
    void resetBundle();

private:
    bool collectFamily(const char* familyId, const Util::Caller& caller);

    ks_server_h mHubServer = nullptr;
    vrd_manager_h mDatabase = nullptr;
    GList* mBundles = nullptr;  // of vrd_bundle_h
};

}  // namespace OrvaneDA
