// SPDX-License-Identifier: Apache-2.0
#include "apps/LevelMeter.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "shared/OwnFile.h"

namespace sim {

namespace {

constexpr char kFolder[] = "/tmp";
constexpr char kFile[] = "OrvaneVolume.tmp";

}  // namespace

LevelMeter::LevelMeter(Record& record) : mRecord(record), mWatch(kFolder, kFile, [this] { onWritten(); }) {}

void LevelMeter::recording(bool on) {
    if (mRecording && !on && mChanges > 1) {
        mRecord.write("levels", {{"changes", mChanges},
                                 {"period", (mLast - mFirst) * 1000 / (mChanges - 1)},
                                 {"longest", mLongest * 1000}});
    }
    if (mRecording != on) {
        mRecording = on;
        mChanges = 0;
        mLongest = 0;
    }
}

// A file that is just being written again is too short. Its own event follows.
void LevelMeter::onWritten() {
    const std::string content = contentOfOwnFile(std::string(kFolder) + "/" + kFile);
    int32_t level = 0;
    if (content.size() < sizeof level) {
        return;
    }
    memcpy(&level, content.data(), sizeof level);
    mRecord.write("level", {{"level", level}});
    const double now = monotonicNow();
    if (mChanges++ == 0) {
        mFirst = now;
    } else {
        mLongest = std::max(mLongest, now - mLast);
    }
    mLast = now;
}

}  // namespace sim
