/* SPDX-License-Identifier: Apache-2.0 */
/* There is no hub. */
#include <kelso_server.h>

int ks_server_create(ks_server_h* server) {
    return KS_SERVER_ERROR_UNREACHABLE;
}

int ks_server_destroy(ks_server_h server) {
    return KS_SERVER_ERROR_UNREACHABLE;
}

int ks_server_sa_account_set(ks_server_h server, const char* guid, const char* access_token, const char* client_id,
                             const char* server_uri) {
    return KS_SERVER_ERROR_UNREACHABLE;
}

int ks_server_profile_families_get(ks_server_h server, GSList** families) {
    return KS_SERVER_ERROR_UNREACHABLE;
}

int ks_server_profile_families_family_users_get(ks_server_h server, const char* family_id, GSList** users) {
    return KS_SERVER_ERROR_UNREACHABLE;
}
