// SPDX-License-Identifier: Apache-2.0
// An application's record of what happened to it: one JSON object a line, written at once, in
// $ORVANE_SIM_RECORDS/<id>.jsonl. Every line has "at" (CLOCK_MONOTONIC, seconds, comparable between processes), "wall"
// (Unix time), "app" and "event".
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace sim {

double monotonicNow();

class Record {
public:
    // Without $ORVANE_SIM_RECORDS the lines go to standard output.
    explicit Record(std::string application);
    ~Record();
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;

    void write(const std::string& event, nlohmann::json details = nlohmann::json::object());

private:
    std::string mApplication;
    int mFile;
};

}  // namespace sim
