#include "orvane_da_db.h"

#include <algorithm>
#include <memory>
#include <new>

#include "dlog.h"
#include "localdb/Location.h"
#include "localdb/Manager.h"

namespace {

// Turns what a room's function throws into a code and one line of the log.
template <typename Action>
int guarded(const char* what, const char* name, Action action) noexcept {
    try {
        return action();
    } catch (const std::bad_alloc&) {
        dlog_print(DLOG_ERROR, "orvane-db", "cannot %s the database %s: out of memory", what, name);
        return VRD_ERROR_OUT_OF_MEMORY;
    } catch (const std::exception& fault) {
        dlog_print(DLOG_ERROR, "orvane-db", "cannot %s the database %s: %s", what, name, fault.what());
        return VRD_ERROR_IO_ERROR;
    }
}

}  // namespace

extern "C" {

int vrd_manager_create(vrd_manager_h* manager, const char* name) {
    if (manager == nullptr || name == nullptr) {
        return VRD_ERROR_INVALID_PARAMETER;
    }
    return guarded("open", name, [&] {
        if (!localdb::isValidName(name)) {
            dlog_print(DLOG_ERROR, "orvane-db", "no name for a database: %s", name);
            return VRD_ERROR_INVALID_PARAMETER;
        }
        *manager = std::make_unique<vrd_manager_s>(name).release();
        return VRD_ERROR_NONE;
    });
}

int vrd_manager_destroy(vrd_manager_h manager) {
    const std::unique_ptr<vrd_manager_s> owned(manager);
    return owned ? VRD_ERROR_NONE : VRD_ERROR_INVALID_PARAMETER;
}

int vrd_manager_foreach_table(vrd_manager_h manager, const char* table, vrd_table_cb callback, void* user_data) {
    if (manager == nullptr || table == nullptr || callback == nullptr) {
        return VRD_ERROR_INVALID_PARAMETER;
    }
    return guarded("read", manager->name().c_str(), [&] {
        const auto visit = [&](const char* field, int kind, const char* value) {
            return callback(field, kind, value, user_data);
        };
        return manager->walk(table, visit) ? VRD_ERROR_NONE : VRD_ERROR_NO_TABLE;
    });
}

int vrd_manager_private_update(vrd_manager_h manager, GList* bundles) {
    if (manager == nullptr) {
        return VRD_ERROR_INVALID_PARAMETER;
    }
    return guarded("update", manager->name().c_str(), [&] {
        vrd_manager_s::Records records;
        for (const GList* node = bundles; node != nullptr; node = node->next) {
            if (node->data == nullptr) {
                return VRD_ERROR_INVALID_PARAMETER;
            }
            records.push_back(static_cast<const vrd_bundle_s*>(node->data));
        }
        manager->replace(records);
        return VRD_ERROR_NONE;
    });
}

int vrd_bundle_create(vrd_bundle_h* record) {
    if (record == nullptr) {
        return VRD_ERROR_INVALID_PARAMETER;
    }
    return guarded("make a record for", "", [&] {
        *record = std::make_unique<vrd_bundle_s>().release();
        return VRD_ERROR_NONE;
    });
}

int vrd_bundle_destroy(vrd_bundle_h record) {
    const std::unique_ptr<vrd_bundle_s> owned(record);
    return owned ? VRD_ERROR_NONE : VRD_ERROR_INVALID_PARAMETER;
}

int vrd_bundle_add_str(vrd_bundle_h record, const char* key, const char* text) {
    if (record == nullptr || key == nullptr || text == nullptr) {
        return VRD_ERROR_INVALID_PARAMETER;
    }
    return guarded("fill a record for", "", [&] {
        auto& fields = record->fields;
        const auto same = [key](const auto& field) { return field.first == key; };
        const auto found = std::find_if(fields.begin(), fields.end(), same);
        if (found != fields.end()) {
            found->second = text;
        } else {
            fields.emplace_back(key, text);
        }
        return VRD_ERROR_NONE;
    });
}
}
