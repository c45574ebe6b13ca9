// SPDX-License-Identifier: Apache-2.0
#include "appliance/environment/PrivateTmp.h"

#include <fcntl.h>
#include <sys/mount.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <system_error>

#include "appliance/environment/Tree.h"
#include "mounts/MountNamespace.h"

namespace sim {

namespace {

// A file or directory in /tmp, open while the new /tmp hides it.
struct Shown {
    std::string path;
    int handle;
};

void keep(std::vector<Shown>& entries, std::filesystem::path path) {
    if (path.string().rfind("/tmp/", 0) != 0) {
        return;
    }
    const int handle = open(path.c_str(), O_PATH | O_CLOEXEC);
    if (handle >= 0) {
        entries.push_back({path, handle});
    }
}

// Creates the target of a bind mount.
void createTarget(const std::filesystem::path& path, bool folder) {
    std::error_code ignored;
    std::filesystem::create_directories(folder ? path : path.parent_path(), ignored);
    if (!folder) {
        std::ofstream file(path, std::ios::app);
    }
}

void show(const std::vector<Shown>& entries) {
    for (const auto& [path, handle] : entries) {
        const std::string here = "/proc/self/fd/" + std::to_string(handle);
        createTarget(path, std::filesystem::is_directory(here));
        mount(here.c_str(), path.c_str(), nullptr, MS_BIND | MS_REC, nullptr);
        close(handle);
    }
}

}  // namespace

bool enterPrivateTmp(const std::vector<std::string>& shown) {
    buildFolder();  // finds it now, because in a chroot the new namespace hides this program's path
    try {
        enterMountNamespace();
    } catch (const std::system_error&) {
        return false;
    }
    // A directory that was opened in the previous namespace cannot be mounted in this one.
    std::vector<Shown> entries;
    keep(entries, sourceFolder());
    keep(entries, buildFolder());
    keep(entries, std::filesystem::current_path());
    for (const std::string& path : shown) {
        keep(entries, path);
    }
    if (mount("tmpfs", "/tmp", "tmpfs", MS_NOSUID | MS_NODEV, "mode=1777") != 0) {
        return false;
    }
    show(entries);
    return true;
}

}  // namespace sim
