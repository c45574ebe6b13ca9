// SPDX-License-Identifier: Apache-2.0
#include "shared/Record.h"

#include <fcntl.h>
#include <time.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

namespace sim {

namespace {

double now(clockid_t clock) {
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

}  // namespace

double monotonicNow() {
    return now(CLOCK_MONOTONIC);
}

Record::Record(std::string application) : mApplication(std::move(application)), mFile(STDOUT_FILENO) {
    const char* folder = getenv("ORVANE_SIM_RECORDS");
    if (folder == nullptr) {
        return;
    }
    const std::string path = std::string(folder) + "/" + mApplication + ".jsonl";
    mFile = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (mFile < 0) {
        throw std::runtime_error("cannot write " + path);
    }
}

Record::~Record() {
    if (mFile != STDOUT_FILENO) {
        close(mFile);
    }
}

// Writes a line with one call, so that only the last line of the file can be incomplete.
void Record::write(const std::string& event, nlohmann::json details) {
    details["at"] = monotonicNow();
    details["wall"] = now(CLOCK_REALTIME);
    details["app"] = mApplication;
    details["event"] = event;
    const std::string line = details.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
    if (::write(mFile, line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
        throw std::runtime_error("cannot write the record of " + mApplication);
    }
}

}  // namespace sim
