// SPDX-License-Identifier: Apache-2.0
#include "SmallFileSystem.h"

#include <sys/mount.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <system_error>

#include "mounts/MountNamespace.h"

namespace localdb_test {

namespace {

void mountOn(const std::string& folder) {
    sim::enterMountNamespace();
    if (mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=1048576") != 0) {
        throw std::system_error(errno, std::generic_category(), "mount");
    }
}

}  // namespace

void SmallFileSystem::SetUp() {
    const int code = await(inChild([this] {
        try {
            mountOn(path());
        } catch (const std::system_error& error) {
            _exit(error.code().value());
        }
    }));
    if (code != 0) {
        GTEST_SKIP() << "this user may not mount a file system here: " << strerror(code);
    }
}

int SmallFileSystem::inside(const std::function<void()>& action) const {
    return await(inChild([&] {
        mountOn(path());
        action();
    }));
}

void SmallFileSystem::remount(unsigned long flags) const {
    ASSERT_EQ(mount(nullptr, path().c_str(), nullptr, MS_REMOUNT | flags, nullptr), 0);
}

void SmallFileSystem::remountReadOnly() const {
    remount(MS_RDONLY);
}

void SmallFileSystem::remountWritable() const {
    remount(0);
}

}  // namespace localdb_test
