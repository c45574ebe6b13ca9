// SPDX-License-Identifier: Apache-2.0
#include "Controller/Trigger/vocon_4_10/Trigger.h"

#include <utility>

namespace OrvaneDA {

void Trigger::setCallback(std::function<void(int)> callback) {
    mCallback = std::move(callback);
}

void Trigger::_shot(int level) {
    if (mCallback && mEnabled) {
        mCallback(level);
    }
}

}  // namespace OrvaneDA
