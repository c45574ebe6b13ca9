// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Controller/SRecorderBackEnd.h"

namespace OrvaneDA {

// Captures through the platform's audio input.
class SRecorderOriginal : public SRecorderBackEnd {
public:
    SRecorderOriginal();
    ~SRecorderOriginal() override;

private:
    bool createDevice(int& result) override;
    int bindStream() override;
    int startDevice() override;
    Read readDevice(char* buffer) override;
    int stopDevice() override;
    int destroyDevice() override;

    audio_in_h mInput = nullptr;
};

}  // namespace OrvaneDA
