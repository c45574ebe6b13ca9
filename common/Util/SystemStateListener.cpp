// SPDX-License-Identifier: Apache-2.0
#include "Util/SystemStateListener.h"

namespace Util {

void SystemStateListener::addCallback(const Callback& callback, void* userData) {
    mCallbacks.push_back({callback, userData});
}

void SystemStateListener::callAll() {
    for (Entry& entry : mCallbacks) {
        entry.callback(entry.userData);
    }
}

}  // namespace Util
