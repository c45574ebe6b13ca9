// SPDX-License-Identifier: Apache-2.0
#include "kelso_server.h"

#include <memory>

#include "Connection.h"
#include "Error.h"
#include "Records.h"
#include "process/FaultLog.h"
#include "process/Guard.h"

struct ks_server_s : hub::Connection {};

namespace {

constexpr char kTag[] = "orvane-hub";
constexpr process::Failures<int> kFailures{KS_SERVER_ERROR_UNREACHABLE, KS_SERVER_ERROR_OUT_OF_MEMORY};

int refuseMissing(const char* function) noexcept {
    dlog_print(DLOG_ERROR, kTag, "%s: an argument is missing", function);
    return KS_SERVER_ERROR_INVALID_PARAMETER;
}

// A hub::Error becomes its code and one log line.
template <typename Action>
int guarded(const char* function, Action action) noexcept {
    return process::guarded(kFailures, function, [&]() -> int {
        try {
            action();
            process::faultEnded(function);
            return KS_SERVER_OK;
        } catch (const hub::Error& error) {
            process::logFault(DLOG_ERROR, kTag, function, error.what());
            return error.code();
        }
    });
}

}  // namespace

extern "C" {

int ks_server_create(ks_server_h* server) {
    if (server == nullptr) {
        return refuseMissing(__func__);
    }
    return guarded(__func__, [&] { *server = std::make_unique<ks_server_s>().release(); });
}

int ks_server_destroy(ks_server_h server) {
    const std::unique_ptr<ks_server_s> owned(server);
    return owned ? KS_SERVER_OK : refuseMissing(__func__);
}

int ks_server_sa_account_set(ks_server_h server, const char* guid, const char* access_token, const char* client_id,
                             const char* server_uri) {
    if (server == nullptr || guid == nullptr || access_token == nullptr || client_id == nullptr ||
        server_uri == nullptr) {
        return refuseMissing(__func__);
    }
    return guarded(__func__, [&] { server->signIn(guid, access_token, client_id, server_uri); });
}

int ks_server_profile_families_get(ks_server_h server, GSList** families) {
    if (server == nullptr || families == nullptr) {
        return refuseMissing(__func__);
    }
    return guarded(__func__, [&] { *families = hub::makeFamilies(server->families()); });
}

int ks_server_profile_families_family_users_get(ks_server_h server, const char* family_id, GSList** users) {
    if (server == nullptr || family_id == nullptr || *family_id == 0 || users == nullptr) {
        return refuseMissing(__func__);
    }
    return guarded(__func__, [&] { *users = hub::makeUsers(server->usersOf(family_id)); });
}
}
