// SPDX-License-Identifier: Apache-2.0
#include "shared/FileWatch.h"

#include <glib-unix.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <stdexcept>

namespace sim {

FileWatch::FileWatch(const std::string& folder, std::string name, std::function<void()> onWritten)
    : mHandle(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)), mName(std::move(name)), mOnWritten(std::move(onWritten)) {
    if (mHandle < 0 || inotify_add_watch(mHandle, folder.c_str(), IN_CLOSE_WRITE | IN_MOVED_TO) < 0) {
        throw std::runtime_error("cannot watch " + folder);
    }
    g_unix_fd_add(
        mHandle, G_IO_IN,
        [](gint, GIOCondition, gpointer self) noexcept -> gboolean {
            static_cast<const FileWatch*>(self)->read();
            return G_SOURCE_CONTINUE;
        },
        this);
}

void FileWatch::read() const {
    alignas(inotify_event) char events[4096];
    const ssize_t length = ::read(mHandle, events, sizeof events);
    for (ssize_t at = 0; at < length;) {
        const auto* event = reinterpret_cast<const inotify_event*>(events + at);
        at += static_cast<ssize_t>(sizeof *event + event->len);
        if (event->len > 0 && mName == event->name) {
            mOnWritten();
        }
    }
}

}  // namespace sim
