// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Controller/SRecorder.h"

namespace OrvaneDA {

// Captures through the speech capture library, which keeps its instance inside.
class SRecorderSSE : public SRecorder {
public:
    SRecorderSSE();
    ~SRecorderSSE() override;

    int _audio_init() override;
    int _audio_prepare() override;
    void _audio_record() override;
    int _audio_unprepare() override;
    int _audio_deinit() override;

    // Tells the library of a wake-up, with its confidence level. Any thread.
    void debugTriggerShot(int level);
};

}  // namespace OrvaneDA
