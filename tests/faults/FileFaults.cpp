// SPDX-License-Identifier: Apache-2.0
// Files in /tmp that other users have replaced, and file systems that are full or read-only.
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "Fault.h"
#include "Mount.h"

namespace faults {

namespace {

constexpr char kLevelFile[] = "/tmp/OrvaneVolume.tmp";
constexpr char kResultFile[] = "/tmp/Result_Orvane_json.txt";
constexpr uid_t kNobody = 65534;

std::string contentOf(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

// A recognition session while `place` has put something else at the paths. The service must refuse the files and
// report that there is no result.
template <typename Place>
void recordWith(Trial& trial, Place place) {
    for (const char* path : {kLevelFile, kResultFile}) {
        std::filesystem::remove_all(path);
        place(path);
    }
    trial.startRecording();
    trial.appliance().say("search for apple pie");
    trial.awaitState("Ready", "NoResultJson");
    trial.awaitLog(kLevelFile);
    trial.awaitLog(kResultFile);
    removeSharedFiles();
}

void fifo(Trial& trial) {
    recordWith(trial, [](const char* path) { mkfifo(path, 0666); });
}

void symlink(Trial& trial) {
    const std::string own = trial.appliance().folder().write("own", "kept");
    recordWith(trial, [&](const char* path) { std::filesystem::create_symlink(own, path); });
    if (contentOf(own) != "kept") {
        throw std::runtime_error("the service has written through the link");
    }
}

void folder(Trial& trial) {
    recordWith(trial, [](const char* path) { std::filesystem::create_directory(path); });
}

void foreign(Trial& trial) {
    recordWith(trial, [](const char* path) {
        std::ofstream(path) << "forged";
        if (chown(path, kNobody, kNobody) != 0) {
            throw CannotRun{"only root may change the owner of a file"};
        }
    });
}

// A profile refresh while the directory of the databases is on such a file system.
void refreshOn(Trial& trial, const std::string& options) {
    const Mount mount(trial, options, trial.appliance().folder() / "data/orvane-da/db");
    trial.appliance().announceProfile();
    trial.awaitLog("orvane-db");
}

void full(Trial& trial) {
    refreshOn(trial, "size=4k");
}

void withoutInodes(Trial& trial) {
    refreshOn(trial, "nr_inodes=1");
}

void readOnly(Trial& trial) {
    refreshOn(trial, "ro");
}

}  // namespace

void removeSharedFiles() {
    for (const char* path : {kLevelFile, kResultFile}) {
        std::filesystem::remove_all(path);
    }
}

Faults fileFaults() {
    return {{"FIFO in place of a file in /tmp", true, fifo},
            {"link in place of a file in /tmp", false, symlink},
            {"directory in place of a file in /tmp", false, folder},
            {"another user's file in /tmp", false, foreign},
            {"database on a full disk", true, full},
            {"database on a disk without inodes", false, withoutInodes},
            {"database on a read-only disk", false, readOnly}};
}

}  // namespace faults
