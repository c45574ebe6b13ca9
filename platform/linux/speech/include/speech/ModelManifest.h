// SPDX-License-Identifier: Apache-2.0
// The sizes and checksums of model files, recorded when the files were installed. A damaged model can make a decoder
// read beyond the end of the model, so each model is verified before it is loaded.
#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace speech {

// Any thread.
class ModelManifest {
public:
    // `file` has a line "SHA-256 SIZE PATH" for each model file, with the path relative to `root`. Without the
    // file, the manifest is empty. Ignores other lines.
    ModelManifest(const std::string& file, const std::string& root);

    // Verifies a file, or every file in a directory, that the manifest contains. Skips files that have not changed
    // since an earlier call. Throws std::runtime_error, which names the damaged or missing file. Takes about 20 ms for
    // 10 MB.
    void verify(const std::string& path);

private:
    struct Entry {
        std::string path;
        std::string checksum;
        std::uintmax_t size = 0;
        std::mutex mutex;         // guards the identity, and makes a second thread wait for the first
        struct stat verified {};  // the file at the last successful check
    };

    void read(const std::string& line, const std::string& root);
    std::vector<Entry*> entriesAt(const std::string& path);
    static void verifyFile(Entry& entry);

    std::map<std::string, Entry> mEntries;  // by absolute path
};

// The manifest of PocketSphinx's models: ORVANE_MODEL_MANIFEST, or the one that the installation wrote. Shared by the
// process.
struct InstalledModels : ModelManifest {
    InstalledModels();
};

}  // namespace speech
