// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <memory>
#include <new>

#include "Handles.h"
#include "Location.h"
#include "process/FaultLog.h"

namespace {

using localdb::kFailures;
using localdb::kTag;
using localdb::refuseMissing;

// An invalid name may contain any character, but a log entry must stay on one line.
int refuseName(std::string name) {
    constexpr std::size_t kLongest = 100;
    const auto isControl = [](unsigned char letter) { return letter < ' ' || letter == 0x7f; };
    name.resize(std::min(name.size(), kLongest));
    std::replace_if(name.begin(), name.end(), isControl, '?');
    dlog_print(DLOG_ERROR, kTag, "not a valid database name: %s", name.c_str());
    return VRD_ERROR_INVALID_PARAMETER;
}

// Runs an operation on the database. A failure becomes an error code and one log line with the database's name.
template <typename Operation>
int attempt(const char* verb, const std::string& name, Operation operation) {
    const std::string failure = std::string("cannot ") + verb + " the database " + name;
    try {
        const int code = operation();
        process::faultEnded(failure);
        return code;
    } catch (const std::bad_alloc&) {
        process::logFault(DLOG_ERROR, kTag, failure, failure + ": out of memory");
        return VRD_ERROR_OUT_OF_MEMORY;
    } catch (const std::exception& error) {
        process::logFault(DLOG_ERROR, kTag, failure, failure + ": " + error.what());
        return VRD_ERROR_IO_ERROR;
    }
}

int open(localdb::Manager& manager) {
    return attempt("open", manager.name(), [&]() -> int {
        manager.open();
        return VRD_ERROR_NONE;
    });
}

bool append(const GList* bundles, localdb::Manager::Records& records) {
    for (const GList* node = bundles; node != nullptr; node = node->next) {
        if (node->data == nullptr) {
            return false;
        }
        records.push_back(static_cast<const vrd_bundle_s*>(node->data));
    }
    return true;
}

}  // namespace

extern "C" {

int vrd_manager_create(vrd_manager_h* manager, const char* name) {
    if (manager == nullptr || name == nullptr) {
        return refuseMissing(__func__);
    }
    return process::guarded(kFailures, __func__, [&]() -> int {
        if (!localdb::isValidName(name)) {
            return refuseName(name);
        }
        auto created = std::make_unique<vrd_manager_s>(name);
        open(*created);  // logs a failure; later calls try again
        *manager = created.release();
        return VRD_ERROR_NONE;
    });
}

int vrd_manager_destroy(vrd_manager_h manager) {
    const std::unique_ptr<vrd_manager_s> owned(manager);
    return owned ? VRD_ERROR_NONE : refuseMissing(__func__);
}

int vrd_manager_foreach_table(vrd_manager_h manager, const char* table, vrd_table_cb callback, void* user_data) {
    if (manager == nullptr || table == nullptr || callback == nullptr) {
        return refuseMissing(__func__);
    }
    return process::guarded(kFailures, __func__, [&] {
        return attempt("read", manager->name(), [&]() -> int {
            const auto visit = [&](const char* field, int kind, const char* value) {
                return callback(field, kind, value, user_data);
            };
            return manager->walk(table, visit) ? VRD_ERROR_NONE : VRD_ERROR_NO_TABLE;
        });
    });
}

int vrd_manager_private_update(vrd_manager_h manager, GList* bundles) {
    if (manager == nullptr) {
        return refuseMissing(__func__);
    }
    const char* const function = __func__;
    return process::guarded(kFailures, function, [&] {
        return attempt("update", manager->name(), [&]() -> int {
            localdb::Manager::Records records;
            if (!append(bundles, records)) {
                return refuseMissing(function);
            }
            manager->replace(records);
            return VRD_ERROR_NONE;
        });
    });
}
}
