// SPDX-License-Identifier: Apache-2.0
// The level of what the assistant hears, from its file: each change as it comes (level), and after a recording how many
// there were and how far apart (levels: changes, period and longest gap in milliseconds).
#pragma once

#include "lib/FileWatch.h"
#include "lib/Record.h"

namespace sim {

class LevelMeter {
public:
    explicit LevelMeter(Record& record);

    void recording(bool on);

private:
    void onWritten();

    Record& mRecord;
    bool mRecording = false;
    int mChanges = 0;
    double mFirst = 0, mLast = 0, mLongest = 0;
    FileWatch mWatch;
};

}  // namespace sim
