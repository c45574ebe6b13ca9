// SPDX-License-Identifier: Apache-2.0
#include "kelso_server.h"

#include <memory>
#include <new>

#include "Fault.h"
#include "Records.h"
#include "Session.h"
#include "dlog.h"

namespace {

int told(int code, const char* text) {
    dlog_print(DLOG_ERROR, "orvane-hub", "%s", text);
    return code;
}

int missing(const char* call) noexcept {
    dlog_print(DLOG_ERROR, "orvane-hub", "%s: an argument is missing", call);
    return KS_SERVER_ERROR_INVALID_PARAMETER;
}

// Turns what the session throws into a code and one line of the log.
template <typename Action>
int guarded(Action action) noexcept {
    try {
        action();
        return KS_SERVER_OK;
    } catch (const hub::Fault& fault) {
        return told(fault.code(), fault.what());
    } catch (const std::bad_alloc&) {
        return told(KS_SERVER_ERROR_OUT_OF_MEMORY, "out of memory");
    } catch (const std::exception& fault) {
        return told(KS_SERVER_ERROR_UNREACHABLE, fault.what());
    }
}

}  // namespace

extern "C" {

int ks_server_create(ks_server_h* server) {
    if (server == nullptr) {
        return missing(__func__);
    }
    return guarded([&] { *server = std::make_unique<ks_server_s>().release(); });
}

int ks_server_destroy(ks_server_h server) {
    const std::unique_ptr<ks_server_s> owned(server);
    if (!owned) {
        return missing(__func__);
    }
    return KS_SERVER_OK;
}

int ks_server_sa_account_set(ks_server_h server, const char* guid, const char* access_token, const char* client_id,
                             const char* server_uri) {
    if (server == nullptr || guid == nullptr || access_token == nullptr || client_id == nullptr ||
        server_uri == nullptr) {
        return missing(__func__);
    }
    return guarded([&] { server->signIn(guid, access_token, client_id, server_uri); });
}

int ks_server_profile_families_get(ks_server_h server, GSList** families) {
    if (server == nullptr || families == nullptr) {
        return missing(__func__);
    }
    return guarded([&] { *families = hub::makeFamilies(server->families()); });
}

int ks_server_profile_families_family_users_get(ks_server_h server, const char* family_id, GSList** users) {
    if (server == nullptr || family_id == nullptr || *family_id == 0 || users == nullptr) {
        return missing(__func__);
    }
    return guarded([&] { *users = hub::makeUsers(server->usersOf(family_id)); });
}
}
