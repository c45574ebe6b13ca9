// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "gio/GPointer.h"

typedef struct _DConfClient DConfClient;

namespace dconf {

// A dconf client on the shared IO thread. Reads come from the database file, so the next read returns what another
// process wrote. Writes are queued, and the next read in this process returns them at once. Any thread.
class Client {
public:
    // Receives the full paths of changed keys, or a folder's path with a closing "/" if any key in it may have changed.
    // Runs on the IO thread, for changes by every process, and must not throw.
    using Changed = std::function<void(const std::vector<std::string>& paths)>;

    explicit Client(Changed changed);
    // Waits for a report in progress. Not on the IO thread while it reports.
    ~Client();
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    gio::Variant read(const std::string& path) const;  // null if the key is missing
    bool write(const std::string& path, GVariant* value);
    // Removes all keys in the folder. Waits for the settings service.
    bool clearFolder(const std::string& folder);

private:
    void report(const char* prefix, const char* const* changes) const;

    Changed mChanged;
    DConfClient* mClient = nullptr;
};

}  // namespace dconf
