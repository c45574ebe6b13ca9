// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Controller/SRecorderBackEnd.h"

namespace OrvaneDA {

// Captures through the speech capture library, whose functions begin with sse_. The library manages its own instance.
class SRecorderSSE : public SRecorderBackEnd {
public:
    SRecorderSSE();
    ~SRecorderSSE() override;

    // Passes the confidence level of a wake-word detection to the library. Any thread.
    void debugTriggerShot(int level);

private:
    bool createDevice(int& result) override;
    int bindStream() override;
    int startDevice() override;
    Read readDevice(char* buffer) override;
    int stopDevice() override;
    int destroyDevice() override;
};

}  // namespace OrvaneDA
