// SPDX-License-Identifier: Apache-2.0
#include "Location.h"

#include <string.h>
#include <strings.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace localdb {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestName = 200;
constexpr char kReserved[] = "sqlite_";

// Null if unset, empty, or not absolute: the XDG base directory rules ignore relative paths.
const char* folderIn(const char* variable) {
    const char* value = getenv(variable);
    return value != nullptr && *value == '/' ? value : nullptr;
}

fs::path folder() {
    if (const char* chosen = getenv("ORVANE_DB_DIR"); chosen != nullptr && *chosen != 0) {
        return chosen;
    }
    if (const char* data = folderIn("XDG_DATA_HOME")) {
        return fs::path(data) / "orvane-da" / "db";
    }
    if (const char* home = folderIn("HOME")) {
        return fs::path(home) / ".local" / "share" / "orvane-da" / "db";
    }
    throw std::runtime_error("no directory for databases: ORVANE_DB_DIR, XDG_DATA_HOME, and HOME are not set");
}

}  // namespace

bool isValidName(const std::string& name) {
    const auto fits = [](unsigned char letter) { return letter >= ' ' && letter != 0x7f && letter != '/'; };
    return !name.empty() && name.size() <= kLongestName && name.front() != '.' &&
           strncasecmp(name.c_str(), kReserved, sizeof kReserved - 1) != 0 &&
           std::all_of(name.begin(), name.end(), fits);
}

// Only the owner may read the directory, because it contains the names of the household's users.
std::string fileOf(const std::string& name) {
    const fs::path place = folder();
    std::error_code error;
    fs::create_directories(place.parent_path(), error);
    if (mkdir(place.c_str(), 0700) != 0 && errno != EEXIST) {
        throw std::runtime_error("cannot create " + place.string() + ": " + strerror(errno));
    }
    return place / (name + ".db");
}

}  // namespace localdb
