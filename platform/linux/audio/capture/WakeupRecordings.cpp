// SPDX-License-Identifier: Apache-2.0
#include "WakeupRecordings.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "process/FaultLog.h"
#include "sndfile/SoundFile.h"

namespace fs = std::filesystem;

namespace audio {

namespace {

constexpr std::size_t kKept = 50;
constexpr const char* kPrefix = "wakeup-";
constexpr const char* kOperation = "wake-word recording";

std::string nameOf(int level) {
    timeval now{};
    gettimeofday(&now, nullptr);
    tm local{};
    localtime_r(&now.tv_sec, &local);
    char time[32];
    strftime(time, sizeof time, "%Y%m%d-%H%M%S", &local);
    char name[96];
    snprintf(name, sizeof name, "%s%s.%06ld-level%d.wav", kPrefix, time, static_cast<long>(now.tv_usec), level);
    return name;
}

// Only the owner may read what was said in the room.
void createFolder(const fs::path& folder) {
    fs::create_directories(folder.parent_path());
    if (mkdir(folder.c_str(), 0700) != 0 && errno != EEXIST) {
        throw std::system_error(errno, std::generic_category(), "mkdir");
    }
}

// The file must not exist yet.
void createFile(const fs::path& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (file < 0) {
        throw std::system_error(errno, std::generic_category(), "open");
    }
    close(file);
}

void dropOldest(const fs::path& folder) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().filename().string().rfind(kPrefix, 0) == 0 && entry.path().extension() == ".wav") {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    for (std::size_t i = 0; i + kKept < files.size(); ++i) {
        fs::remove(files[i]);
    }
}

}  // namespace

std::string wakeupRecordingsFolder() {
    const char* folder = std::getenv("ORVANE_WAKEUP_RECORDINGS");
    return folder ? folder : "";
}

void writeNewFile(const std::string& path, const std::vector<int16_t>& samples, int rate) {
    createFile(path);
    try {
        sndfile::writeWav(path, rate, 1, samples.data(), samples.size());
    } catch (const std::exception&) {
        std::error_code ignored;
        fs::remove(path, ignored);
        throw;
    }
}

void writeWakeupRecording(const std::vector<int16_t>& samples, int rate, int level) {
    const std::string name = wakeupRecordingsFolder();
    try {
        const fs::path folder = fs::path(name + "/").parent_path();  // without a slash at the end
        createFolder(folder);
        writeNewFile(folder / nameOf(level), samples, rate);
        dropOldest(folder);
        process::faultEnded(kOperation);
    } catch (const std::exception& fault) {
        process::logFault(DLOG_WARN, "orvane-audio", kOperation,
                          "cannot save the recording of a wake-word detection in " + name + ": " + fault.what());
    }
}

}  // namespace audio
