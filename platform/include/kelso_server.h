/* Client of the appliance hub server. Blocks for the network: connecting takes at most 5 s, a request 15 s. */
#pragma once

#include <glib.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct ks_server_s* ks_server_h;

/* Besides these, the status of an HTTP answer that is no success (300 to 599) is an error code of its own. */
enum {
    KS_SERVER_OK = 0,
    KS_SERVER_ERROR_OUT_OF_MEMORY = -12,
    KS_SERVER_ERROR_INVALID_PARAMETER = -22,
    KS_SERVER_ERROR_NOT_SIGNED_IN = -1201,
    KS_SERVER_ERROR_UNREACHABLE = -1202, /* no such host, refused, or the connection broke */
    KS_SERVER_ERROR_TIMED_OUT = -1203,
    KS_SERVER_ERROR_TLS = -1204,        /* no secure connection, or a certificate that is not trusted */
    KS_SERVER_ERROR_BAD_ANSWER = -1205, /* not what the hub may answer, or too much of it */
};

/* Texts are always terminated. Longer names are cut at a character boundary; an id that does not fit is a bad answer,
 * because its beginning could be another's id. */
typedef struct {
    char family_name[256];
    char family_id[256];
} ks_family_s;

typedef struct {
    char user_id[1024];
    char user_name[1024];
} ks_family_user_s;

/* A session is used by one thread at a time. 0, or an error code, which the log explains in one line. */
int ks_server_create(ks_server_h* server);
int ks_server_destroy(ks_server_h server);
/* Signs the session in; one that was signed in before is signed out first. `server_uri` is the hub's http or https
 * address. No text may be empty or hold a control character. */
int ks_server_sa_account_set(ks_server_h server, const char* guid, const char* access_token, const char* client_id,
                             const char* server_uri);
/* Lists of malloc'ed ks_family_s and ks_family_user_s; records and list are the caller's (free, g_slist_free).
 * Untouched on failure; null when there is none. */
int ks_server_profile_families_get(ks_server_h server, GSList** families);
int ks_server_profile_families_family_users_get(ks_server_h server, const char* family_id, GSList** users);

#ifdef __cplusplus
}
#endif
