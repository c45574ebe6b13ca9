// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "gio/GPointer.h"

typedef struct _DConfClient DConfClient;

namespace dconf {

// dconf's client on the shared I/O thread. Reads come from the database file, so another process's write is seen by the
// next read; writes are queued and seen by this process's next read at once. Any thread.
class Client {
public:
    // Given the full paths of changed keys, or a folder's path (with a closing "/") when all of it may have changed;
    // called on the I/O thread for changes by anybody.
    using Changed = std::function<void(const std::vector<std::string>& paths)>;

    explicit Client(Changed changed);
    ~Client() = delete;  // lives until the process ends

    gio::Variant read(const std::string& path) const;  // null when the key is missing
    bool write(const std::string& path, GVariant* value);
    // Removes everything below the folder; waits for the settings service.
    bool clearFolder(const std::string& folder);

private:
    void report(const char* prefix, const char* const* changes) const;

    Changed mChanged;
    DConfClient* mClient = nullptr;
};

}  // namespace dconf
