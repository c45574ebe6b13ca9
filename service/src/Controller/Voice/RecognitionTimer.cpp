// SPDX-License-Identifier: Apache-2.0
#include "Controller/Voice/RecognitionTimer.h"

#include <utility>

namespace OrvaneDA {

RecognitionTimer::RecognitionTimer(std::function<void()> onTimeOut) : mOnTimeOut(std::move(onTimeOut)) {}

RecognitionTimer::~RecognitionTimer() {
    stop();
}

void RecognitionTimer::start(double seconds) {
    if (mTimer != nullptr) {
        return;
    }
    mTimer = ecore_timer_add(
        seconds,
        [](void* timer) noexcept -> Eina_Bool {
            static_cast<RecognitionTimer*>(timer)->mOnTimeOut();
            return ECORE_CALLBACK_CANCEL;
        },
        this);
}

void RecognitionTimer::stop() {
    if (mTimer != nullptr) {
        ecore_timer_del(mTimer);
    }
    mTimer = nullptr;
}

}  // namespace OrvaneDA
