// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string.h>

#include <atomic>

#include "Controller/SRecorderOriginal.h"
#include "Controller/SRecorderSSE.h"
#include "fake/audio/FakeCapture.h"
#include "fake/audio/FakeSound.h"
#include "unit/Fixture.h"

using OrvaneDA::SRecorder;
using OrvaneDA::SRecorderOriginal;
using OrvaneDA::SRecorderSSE;
using BothRecorders = testing::Types<SRecorderOriginal, SRecorderSSE>;

// Counts the blocks that it receives and keeps the first.
class CountingListener : public OrvaneDA::SRecordListener {
public:
    CountingListener() : SRecordListener(0) {}
    void implDataHandled(char* data, int size) override {
        if (blocks == 0) {
            memcpy(&first, data, 2);
            block.reset(data);
            turn = ++turns;
        } else {
            delete[] data;
        }
        blockSize = size;
        ++blocks;
    }
    std::unique_ptr<char[]> block;  // the first
    int turn = 0;                   // its place among the first blocks of all listeners
    static inline int turns = 0;
    std::atomic<int> blocks{0};
    std::atomic<int> blockSize{0};
    short first = 0;  // sample of the first block
};

inline Texts deviceCalls() {
    return fake::platform().textsOf({"audio_in_c", "audio_in_d", "audio_in_p", "audio_in_s", "audio_in_u", "sse_c",
                                     "sse_d", "sse_i", "sse_p", "sse_s", "sse_u", "sound_"});
}

inline const Texts FOCUS_ACQUIRED = {"sound_manager_get_focus_state(null, recording)",
                                     "sound_manager_acquire_focus(2, 0, (null))"};
inline const Texts FOCUS_RELEASED = {"sound_manager_get_focus_state(null, recording)",
                                     "sound_manager_release_focus(2, 0, (null))"};

inline Texts joined(std::initializer_list<Texts> parts) {
    Texts all;
    for (const Texts& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}
