/* Client of the appliance hub server. Blocks for the network: connecting takes at most 5 s, a request 15 s. */
#pragma once

#include <glib.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct ks_server_s* ks_server_h;

enum { KS_SERVER_OK = 0 };

/* Texts are always terminated; longer ones are cut at a character boundary. */
typedef struct {
    char family_name[256];
    char family_id[256];
} ks_family_s;

typedef struct {
    char user_id[1024];
    char user_name[1024];
} ks_family_user_s;

/* A session is used by one thread at a time. 0, or an error code. */
int ks_server_create(ks_server_h* server);
int ks_server_destroy(ks_server_h server);
/* Signs the session in. */
int ks_server_sa_account_set(ks_server_h server, const char* guid, const char* access_token, const char* client_id,
                             const char* server_uri);
/* Lists of malloc'ed ks_family_s and ks_family_user_s; records and list are the caller's (free, g_slist_free).
 * Untouched on failure; null when there is none. */
int ks_server_profile_families_get(ks_server_h server, GSList** families);
int ks_server_profile_families_family_users_get(ks_server_h server, const char* family_id, GSList** users);

#ifdef __cplusplus
}
#endif
