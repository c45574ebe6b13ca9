// SPDX-License-Identifier: Apache-2.0
#include "fake/data/FakeHousehold.h"

#include <kelso_server.h>
#include <orvane_da_db.h>
#include <stdlib.h>
#include <string.h>

#include <atomic>

#include "fake/Platform.h"

using fake::platform;
using fake::str;

struct ks_server_s {};
struct vrd_manager_s {};
struct vrd_bundle_s {
    std::string text;
};

namespace {

std::mutex stateMutex;
std::vector<fake::Family> families;
std::map<std::string, std::vector<fake::Field>> tables;
std::vector<std::string> stored;
std::atomic<int> records{0};
ks_server_s server;
vrd_manager_s manager;

const bool registered = platform().addReset([] {
    std::lock_guard<std::mutex> lock(stateMutex);
    families.clear();
    tables.clear();
    stored.clear();
    records = 0;
});

template <size_t N>
void copyText(char (&target)[N], const std::string& text) {
    strncpy(target, text.c_str(), N - 1);
    target[N - 1] = 0;
}

}  // namespace

namespace fake {

void setFamilies(const std::vector<Family>& value) {
    std::lock_guard<std::mutex> lock(stateMutex);
    families = value;
}

void setTable(const std::string& table, const std::vector<Field>& fields) {
    std::lock_guard<std::mutex> lock(stateMutex);
    tables[table] = fields;
}

std::vector<std::string> storedRecords() {
    std::lock_guard<std::mutex> lock(stateMutex);
    return stored;
}

int openRecords() {
    return records;
}

}  // namespace fake

extern "C" {

int ks_server_create(ks_server_h* out) {
    *out = &server;
    return platform().call("ks_server_create");
}

int ks_server_destroy(ks_server_h) {
    return platform().call("ks_server_destroy");
}

int ks_server_sa_account_set(ks_server_h, const char* guid, const char* token, const char* client, const char* uri) {
    return platform().call("ks_server_sa_account_set", {guid, token, client, uri});
}

int ks_server_profile_families_get(ks_server_h, GSList** list) {
    const int result = platform().call("ks_server_profile_families_get");
    std::lock_guard<std::mutex> lock(stateMutex);
    for (const fake::Family& family : families) {
        if (result != 0) {
            break;
        }
        auto* record = static_cast<ks_family_s*>(calloc(1, sizeof(ks_family_s)));
        copyText(record->family_id, family.id);
        *list = g_slist_append(*list, record);
    }
    return result;
}

int ks_server_profile_families_family_users_get(ks_server_h, const char* family_id, GSList** list) {
    int result = platform().call("ks_server_profile_families_family_users_get", {family_id});
    std::lock_guard<std::mutex> lock(stateMutex);
    for (const fake::Family& family : families) {
        if (family.id != family_id || result != 0) {
            continue;
        }
        result = family.result;
        for (const auto& [id, name] : family.users) {
            if (result != 0) {
                break;
            }
            auto* record = static_cast<ks_family_user_s*>(calloc(1, sizeof(ks_family_user_s)));
            copyText(record->user_id, id);
            copyText(record->user_name, name);
            *list = g_slist_append(*list, record);
        }
    }
    return result;
}

int vrd_manager_create(vrd_manager_h* out, const char* name) {
    const int result = platform().call("vrd_manager_create", {name});
    if (result == 0) {
        *out = &manager;
    }
    return result;
}

int vrd_manager_destroy(vrd_manager_h) {
    return platform().call("vrd_manager_destroy");
}

int vrd_manager_foreach_table(vrd_manager_h, const char* table, vrd_table_cb callback, void* user_data) {
    const int result = platform().call("vrd_manager_foreach_table", {table});
    std::vector<fake::Field> fields;
    {
        std::lock_guard<std::mutex> lock(stateMutex);
        fields = tables[table];
    }
    for (const fake::Field& field : fields) {
        if (!callback(field.name.c_str(), field.kind, field.value.c_str(), user_data)) {
            break;
        }
    }
    return result;
}

int vrd_manager_private_update(vrd_manager_h, GList* bundles) {
    {
        std::lock_guard<std::mutex> lock(stateMutex);
        stored.clear();
        for (GList* node = bundles; node != nullptr; node = node->next) {
            stored.push_back(static_cast<vrd_bundle_h>(node->data)->text);
        }
    }
    return platform().call("vrd_manager_private_update", {str(g_list_length(bundles))});
}

int vrd_bundle_create(vrd_bundle_h* record) {
    *record = new vrd_bundle_s;
    ++records;
    return platform().call("vrd_bundle_create");
}

int vrd_bundle_destroy(vrd_bundle_h record) {
    delete record;
    --records;
    return platform().call("vrd_bundle_destroy");
}

int vrd_bundle_add_str(vrd_bundle_h record, const char* key, const char* text) {
    record->text += (record->text.empty() ? "" : " ") + std::string(key) + "=" + text;
    return platform().call("vrd_bundle_add_str", {key, text});
}

}  // extern "C"
