// SPDX-License-Identifier: Apache-2.0
#include "mounts/MountNamespace.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>

namespace sim {

namespace {

void check(bool succeeded, const char* step) {
    if (!succeeded) {
        throw std::system_error(errno, std::generic_category(), step);
    }
}

class File {
public:
    File(const char* path, int flags) : mHandle(open(path, flags | O_CLOEXEC)) { check(mHandle >= 0, path); }
    ~File() { close(mHandle); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    int get() const { return mHandle; }

private:
    int mHandle;
};

void write(const char* path, const std::string& text) {
    const File file(path, O_WRONLY);
    check(::write(file.get(), text.data(), text.size()) == static_cast<ssize_t>(text.size()), path);
}

void separateAsOrdinaryUser() {
    const std::string user = std::to_string(getuid());
    const std::string group = std::to_string(getgid());
    check(unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0, "unshare user and mount namespace");
    write("/proc/self/setgroups", "deny");
    write("/proc/self/uid_map", user + " " + user + " 1");
    write("/proc/self/gid_map", group + " " + group + " 1");
}

bool stopPropagation() {
    return mount(nullptr, "/", nullptr, MS_REC | MS_SLAVE, nullptr) == 0;
}

// The root of a chroot need not be a mount point, and only a mount point has a propagation type. The mount that
// contains it is reachable from the namespace's own root, which is where setns() leads.
void stopPropagationOutsideChroot() {
    const File root("/", O_PATH | O_DIRECTORY);
    const File folder(".", O_PATH | O_DIRECTORY);
    const File mounts("/proc/self/ns/mnt", O_RDONLY);
    check(setns(mounts.get(), CLONE_NEWNS) == 0, "setns");
    check(stopPropagation(), "make the mounts slaves");
    check(fchdir(root.get()) == 0 && chroot(".") == 0 && fchdir(folder.get()) == 0, "return into the chroot");
}

}  // namespace

void enterMountNamespace() {
    if (unshare(CLONE_NEWNS) != 0) {
        separateAsOrdinaryUser();
    }
    if (!stopPropagation()) {
        stopPropagationOutsideChroot();
    }
}

}  // namespace sim
