// SPDX-License-Identifier: Apache-2.0
#include "dconf/Client.h"

#include <dconf.h>

#include <memory>

namespace dconf {

namespace {

struct ChangesetUnref {
    void operator()(DConfChangeset* changes) const noexcept { dconf_changeset_unref(changes); }
};

}  // namespace

Client::Client(gio::Context context, Changed changed) : mContext(std::move(context)), mChanged(std::move(changed)) {
    // The client emits its signals on the main context of the thread that creates it.
    mContext.run([this] {
        mClient = dconf_client_new();
        g_signal_connect(
            mClient, "changed",
            G_CALLBACK(+[](DConfClient*, const char* prefix, const char* const* changes, const char*,
                           gpointer self) noexcept { static_cast<Client*>(self)->report(prefix, changes); }),
            this);
        dconf_client_watch_fast(mClient, "/");
    });
}

Client::~Client() {
    mContext.run([this] {
        g_signal_handlers_disconnect_by_data(mClient, this);
        g_object_unref(mClient);
    });
}

void Client::report(const char* prefix, const char* const* changes) const {
    std::vector<std::string> paths;
    for (; *changes != nullptr; ++changes) {
        paths.push_back(std::string(prefix) + *changes);
    }
    mChanged(paths);
}

gio::Variant Client::read(const std::string& path) const {
    return gio::Variant(dconf_client_read(mClient, path.c_str()));
}

bool Client::write(const std::string& path, GVariant* value) {
    gio::Error error;
    return dconf_client_write_fast(mClient, path.c_str(), value, error.out());
}

bool Client::writeAndWait(const std::string& path, const gio::Variant& value) {
    gio::Error error;
    return dconf_client_write_sync(mClient, path.c_str(), value.get(), nullptr, nullptr, error.out());
}

bool Client::clearFolder(const std::string& folder) {
    const std::unique_ptr<DConfChangeset, ChangesetUnref> changes(dconf_changeset_new());
    dconf_changeset_set(changes.get(), folder.c_str(), nullptr);
    gio::Error error;
    return dconf_client_change_sync(mClient, changes.get(), nullptr, nullptr, error.out());
}

}  // namespace dconf
