// SPDX-License-Identifier: Apache-2.0
#include "Limits.h"

#include <sys/resource.h>

namespace appfw {

namespace {

// The service uses about 45 files and 1.3 GB of address space, most of it reserved for the heaps of its threads.
constexpr rlim_t kFiles = 64;
constexpr rlim_t kMegabyte = 1 << 20;
constexpr rlim_t kAddresses = 1536 * kMegabyte;

bool allows(__rlimit_resource resource, rlim_t needed) {
    rlimit limit{};
    if (getrlimit(resource, &limit) != 0 || limit.rlim_cur >= needed) {
        return true;
    }
    limit.rlim_cur = needed;
    return limit.rlim_max >= needed && setrlimit(resource, &limit) == 0;
}

}  // namespace

std::string insufficientLimit() {
    if (!allows(RLIMIT_NOFILE, kFiles)) {
        return "the limit of open files is below " + std::to_string(kFiles);
    }
    if (!allows(RLIMIT_AS, kAddresses)) {
        return "the limit of address space is below " + std::to_string(kAddresses / kMegabyte) + " MB";
    }
    return {};
}

}  // namespace appfw
