// SPDX-License-Identifier: Apache-2.0
// An application's record of what happens to it: one JSON object per line in $ORVANE_SIM_RECORDS/<id>.jsonl, written at
// once. Every line has "at" (seconds of CLOCK_MONOTONIC, the same for all processes), "wall" (Unix time), "app", and
// "event".
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace sim {

double monotonicNow();

class Record {
public:
    // If $ORVANE_SIM_RECORDS is not set, writes to standard output. Throws std::runtime_error.
    explicit Record(std::string application);
    ~Record();
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;

    // Throws std::runtime_error. Any thread.
    void write(const std::string& event, nlohmann::json details = nlohmann::json::object());

private:
    std::string mApplication;
    int mFile;
};

}  // namespace sim
