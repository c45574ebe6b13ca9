// SPDX-License-Identifier: Apache-2.0
#include "appliance/PrivateTmp.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "appliance/Tree.h"

namespace sim {

namespace {

// A file or folder under /tmp that the new /tmp would hide, held open until it is shown again.
struct Kept {
    std::string path;
    int handle;
};

void keep(std::vector<Kept>& kept, std::filesystem::path path) {
    if (path.string().rfind("/tmp/", 0) != 0) {
        return;
    }
    const int handle = open(path.c_str(), O_PATH | O_CLOEXEC);
    if (handle >= 0) {
        kept.push_back({path, handle});
    }
}

// What a mount needs to be mounted on.
void standIn(const std::filesystem::path& path, bool folder) {
    std::error_code ignored;
    std::filesystem::create_directories(folder ? path : path.parent_path(), ignored);
    if (!folder) {
        std::ofstream file(path, std::ios::app);
    }
}

void show(const std::vector<Kept>& kept) {
    for (const auto& [path, handle] : kept) {
        const std::string here = "/proc/self/fd/" + std::to_string(handle);
        standIn(path, std::filesystem::is_directory(here));
        mount(here.c_str(), path.c_str(), nullptr, MS_BIND | MS_REC, nullptr);
        close(handle);
    }
}

bool write(const char* path, const std::string& text) {
    std::ofstream file(path);
    return static_cast<bool>(file << text << std::flush);
}

bool separate() {
    if (unshare(CLONE_NEWNS) == 0) {
        return true;
    }
    const std::string user = std::to_string(getuid());
    const std::string group = std::to_string(getgid());
    return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && write("/proc/self/setgroups", "deny") &&
           write("/proc/self/uid_map", user + " " + user + " 1") &&
           write("/proc/self/gid_map", group + " " + group + " 1");
}

}  // namespace

bool enterPrivateTmp(const std::vector<std::string>& shown) {
    if (!separate() || mount(nullptr, "/", nullptr, MS_REC | MS_SLAVE, nullptr) != 0) {
        return false;
    }
    // Only now: a folder that was opened in the namespace before cannot be mounted in this one.
    std::vector<Kept> kept;
    keep(kept, sourceFolder());
    keep(kept, buildFolder());
    keep(kept, std::filesystem::current_path());
    for (const std::string& path : shown) {
        keep(kept, path);
    }
    if (mount("tmpfs", "/tmp", "tmpfs", MS_NOSUID | MS_NODEV, "mode=1777") != 0) {
        return false;
    }
    show(kept);
    return true;
}

}  // namespace sim
