// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "gio/Context.h"
#include "gio/GPointer.h"

typedef struct _DConfClient DConfClient;

namespace dconf {

// A dconf client. Reads come from the database file, so they return what other processes wrote.
// Writes are queued, but later reads in this process return the new value immediately. Any thread.
class Client {
public:
    // Receives the full paths of changed keys, or the path of a directory with a trailing "/" if any key in it may have
    // changed. Runs on the context, for changes by every process, and must not throw.
    using Changed = std::function<void(const std::vector<std::string>& paths)>;

    // A thread must iterate the context as long as the client exists, or no callback runs.
    Client(gio::Context context, Changed changed);
    // Waits for a callback in progress. Must not be called from the callback.
    ~Client();
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    gio::Variant read(const std::string& path) const;  // null if the key is missing
    bool write(const std::string& path, GVariant* value);
    // Like write(), but waits until the settings service has stored the value.
    bool writeAndWait(const std::string& path, const gio::Variant& value);
    // Removes all keys in the directory. Waits for the settings service.
    bool clearFolder(const std::string& folder);

private:
    void report(const char* prefix, const char* const* changes) const;

    gio::Context mContext;
    Changed mChanged;
    DConfClient* mClient = nullptr;
};

}  // namespace dconf
