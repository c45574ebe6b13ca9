// SPDX-License-Identifier: Apache-2.0
/* Client of the hub, the server of the household's profiles. Calls block on the network: connecting takes at most 5 s,
 * and a request at most 15 s. */
#pragma once

#include <glib.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct ks_server_s* ks_server_h;

/* An HTTP error status (300 to 599) is also an error code. */
enum {
    KS_SERVER_OK = 0,
    KS_SERVER_ERROR_OUT_OF_MEMORY = -12,
    KS_SERVER_ERROR_INVALID_PARAMETER = -22,
    KS_SERVER_ERROR_NOT_SIGNED_IN = -1201,
    KS_SERVER_ERROR_UNREACHABLE = -1202, /* unknown host, connection refused or broken */
    KS_SERVER_ERROR_TIMED_OUT = -1203,
    KS_SERVER_ERROR_TLS = -1204,        /* TLS is not available, or the certificate is not trusted */
    KS_SERVER_ERROR_BAD_ANSWER = -1205, /* the hub's reply is invalid or too long */
};

/* Every string is null-terminated. A name that does not fit is truncated at a character boundary. An id that does not
 * fit causes KS_SERVER_ERROR_BAD_ANSWER, because a truncated id could equal another id. */
typedef struct {
    char family_name[256];
    char family_id[256];
} ks_family_s;

typedef struct {
    char user_id[1024];
    char user_name[1024];
} ks_family_user_s;

/* One thread at a time may use a handle. All functions return KS_SERVER_OK or an error code; the library logs each
 * error in one line. */
int ks_server_create(ks_server_h* server);
int ks_server_destroy(ks_server_h server);
/* Drops the token of the previous account, if any, and then signs in to the hub. `server_uri` is the hub's http or
 * https address. No string may be empty or contain a control character. */
int ks_server_sa_account_set(ks_server_h server, const char* guid, const char* access_token, const char* client_id,
                             const char* server_uri);
/* Lists of ks_family_s and ks_family_user_s. The caller frees each record with free() and the list with g_slist_free.
 * Unchanged on failure; null if there are no records. */
int ks_server_profile_families_get(ks_server_h server, GSList** families);
int ks_server_profile_families_family_users_get(ks_server_h server, const char* family_id, GSList** users);

#ifdef __cplusplus
}
#endif
