// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Controller/SRecorder.h"

namespace OrvaneDA {

// Captures through the platform's audio input.
class SRecorderOriginal : public SRecorder {
public:
    SRecorderOriginal();
    ~SRecorderOriginal() override;

    int _audio_init() override;
    int _audio_prepare() override;
    void _audio_record() override;
    int _audio_unprepare() override;
    int _audio_deinit() override;

private:
    audio_in_h mInput = nullptr;
};

}  // namespace OrvaneDA
