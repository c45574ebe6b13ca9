// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <Ecore.h>

#include <functional>

namespace OrvaneDA {

// A main-loop timer that fires once. Main loop only.
class RecognitionTimer {
public:
    explicit RecognitionTimer(std::function<void()> onTimeOut);
    ~RecognitionTimer();
    RecognitionTimer(const RecognitionTimer&) = delete;
    RecognitionTimer& operator=(const RecognitionTimer&) = delete;

    // Does nothing if the timer was started and not stopped, even if it has fired.
    void start(double seconds);
    void stop();

private:
    std::function<void()> mOnTimeOut;
    Ecore_Timer* mTimer = nullptr;
};

}  // namespace OrvaneDA
