// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <mutex>
#include <utility>

namespace Util {

// One instance a type, created on first use, whichever thread that is.
template <typename T>
class Singleton {
public:
    // Any thread. The constructor of T must not ask for the instance.
    static T* getInstance() {
        std::lock_guard<std::mutex> lock(mCreation);
        if (mInstance == nullptr) {
            mInstance = new T;
        }
        return mInstance;
    }

    // Only when no other thread uses the instance any more; a later use makes a new one.
    static void destroy() {
        T* leaving = nullptr;
        {
            std::lock_guard<std::mutex> lock(mCreation);
            std::swap(leaving, mInstance);
        }
        delete leaving;
    }

    static inline T* mInstance = nullptr;

private:
    static inline std::mutex mCreation;  // while the pointer changes
};

}  // namespace Util
