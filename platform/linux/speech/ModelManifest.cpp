// SPDX-License-Identifier: Apache-2.0
#include "speech/ModelManifest.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <future>
#include <sstream>
#include <stdexcept>

#include "openssl/Digest.h"
#include "process/Installation.h"
#include "sphinx/Models.h"

namespace speech {

namespace {

namespace fs = std::filesystem;

class File {
public:
    explicit File(const std::string& path) : mDescriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
        if (mDescriptor < 0) {
            throw std::runtime_error("missing model: " + path);
        }
    }
    ~File() { close(mDescriptor); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    struct stat status() const {
        struct stat status {};
        fstat(mDescriptor, &status);
        return status;
    }
    std::string checksum() const {
        openssl::Sha256 sum;
        std::array<char, 1 << 16> block{};
        for (ssize_t size = 0; (size = ::read(mDescriptor, block.data(), block.size())) > 0;) {
            sum.add(block.data(), static_cast<std::size_t>(size));
        }
        return sum.finish();
    }

private:
    int mDescriptor;
};

bool areEqual(const timespec& one, const timespec& other) {
    return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}

bool areSameFile(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino && one.st_size == other.st_size &&
           areEqual(one.st_mtim, other.st_mtim) && areEqual(one.st_ctim, other.st_ctim);
}

std::string installedManifest() {
    const char* chosen = std::getenv("ORVANE_MODEL_MANIFEST");
    return chosen ? chosen : process::installed("orvane-da-models");
}

}  // namespace

ModelManifest::ModelManifest(const std::string& file, const std::string& root) {
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);) {
        read(line, root);
    }
}

void ModelManifest::read(const std::string& line, const std::string& root) {
    std::istringstream words(line);
    std::string checksum;
    std::uintmax_t size = 0;
    std::string path;
    if (!(words >> checksum >> size) || !std::getline(words >> std::ws, path)) {
        return;
    }
    const std::string absolute = (fs::path(root) / path).lexically_normal();
    Entry& entry = mEntries[absolute];
    entry.path = absolute;
    entry.checksum = checksum;
    entry.size = size;
}

std::vector<ModelManifest::Entry*> ModelManifest::entriesAt(const std::string& path) {
    const std::string exact = fs::path(path).lexically_normal();
    const std::string folder = exact.back() == '/' ? exact : exact + "/";
    std::vector<Entry*> entries;
    for (auto& [name, entry] : mEntries) {
        if (name == exact || name.compare(0, folder.size(), folder) == 0) {
            entries.push_back(&entry);
        }
    }
    return entries;
}

// Uses two threads, because this delays the start of the service.
void ModelManifest::verify(const std::string& path) {
    const std::vector<Entry*> entries = entriesAt(path);
    std::atomic<std::size_t> next{0};
    const auto work = [&] {
        for (std::size_t i = 0; (i = next++) < entries.size();) {
            verifyFile(*entries[i]);
        }
    };
    std::future<void> helper;
    if (entries.size() > 1) {
        helper = std::async(work);
    }
    work();
    if (helper.valid()) {
        helper.get();
    }
}

void ModelManifest::verifyFile(Entry& entry) {
    const std::lock_guard lock(entry.mutex);
    const File file(entry.path);
    const struct stat status = file.status();
    if (areSameFile(status, entry.verified)) {
        return;
    }
    if (static_cast<std::uintmax_t>(status.st_size) != entry.size) {
        throw std::runtime_error("damaged model: " + entry.path + " has " + std::to_string(status.st_size) +
                                 " bytes instead of " + std::to_string(entry.size));
    }
    if (file.checksum() != entry.checksum) {
        throw std::runtime_error("damaged model: " + entry.path + " has changed since its installation");
    }
    entry.verified = status;
}

InstalledModels::InstalledModels() : ModelManifest(installedManifest(), sphinx::modelPath("")) {}

}  // namespace speech
