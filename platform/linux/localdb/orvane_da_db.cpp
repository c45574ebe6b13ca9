// SPDX-License-Identifier: Apache-2.0
#include "orvane_da_db.h"

#include <algorithm>
#include <memory>
#include <new>

#include "Location.h"
#include "Manager.h"
#include "dlog.h"

namespace {

vrd_error_e missing(const char* call) noexcept {
    dlog_print(DLOG_ERROR, "orvane-db", "%s: an argument is missing", call);
    return VRD_ERROR_INVALID_PARAMETER;
}

// A name that is refused may hold anything, and the log is lines.
vrd_error_e refused(std::string name) {
    constexpr std::size_t enough = 100;
    const auto isControl = [](unsigned char letter) { return letter < ' ' || letter == 0x7f; };
    name.resize(std::min(name.size(), enough));
    std::replace_if(name.begin(), name.end(), isControl, '?');
    dlog_print(DLOG_ERROR, "orvane-db", "no name for a database: %s", name.c_str());
    return VRD_ERROR_INVALID_PARAMETER;
}

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
        return missing(__func__);
    }
    return guarded("make", "handle", [&] {
        if (!localdb::isValidName(name)) {
            return refused(name);
        }
        auto made = std::make_unique<vrd_manager_s>(name);
        // Told now; the calls that come try again.
        guarded("open", name, [&] {
            made->open();
            return VRD_ERROR_NONE;
        });
        *manager = made.release();
        return VRD_ERROR_NONE;
    });
}

int vrd_manager_destroy(vrd_manager_h manager) {
    const std::unique_ptr<vrd_manager_s> owned(manager);
    return owned ? VRD_ERROR_NONE : missing(__func__);
}

int vrd_manager_foreach_table(vrd_manager_h manager, const char* table, vrd_table_cb callback, void* user_data) {
    if (manager == nullptr || table == nullptr || callback == nullptr) {
        return missing(__func__);
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
        return missing(__func__);
    }
    return guarded("update", manager->name().c_str(), [&] {
        vrd_manager_s::Records records;
        for (const GList* node = bundles; node != nullptr; node = node->next) {
            if (node->data == nullptr) {
                return missing("vrd_manager_private_update");
            }
            records.push_back(static_cast<const vrd_bundle_s*>(node->data));
        }
        manager->replace(records);
        return VRD_ERROR_NONE;
    });
}

int vrd_bundle_create(vrd_bundle_h* record) {
    if (record == nullptr) {
        return missing(__func__);
    }
    return guarded("make a record for", "", [&] {
        *record = std::make_unique<vrd_bundle_s>().release();
        return VRD_ERROR_NONE;
    });
}

int vrd_bundle_destroy(vrd_bundle_h record) {
    const std::unique_ptr<vrd_bundle_s> owned(record);
    return owned ? VRD_ERROR_NONE : missing(__func__);
}

int vrd_bundle_add_str(vrd_bundle_h record, const char* key, const char* text) {
    if (record == nullptr || key == nullptr || text == nullptr) {
        return missing(__func__);
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
