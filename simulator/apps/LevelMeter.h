// SPDX-License-Identifier: Apache-2.0
// Records the level file: each change (event "level"), and after each recording the number of changes, their mean
// period, and the longest gap in milliseconds (event "levels").
#pragma once

#include "shared/FileWatch.h"
#include "shared/Record.h"

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
