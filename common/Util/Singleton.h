// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <mutex>
#include <utility>

namespace Util {

// One instance per type, created on first use by any thread. An instance that is never destroyed, such as the async
// thread, lives until the process exits, because other threads may use it until then.
template <typename T>
class Singleton {
public:
    // Any thread. T's constructor must not call this.
    static T* getInstance() {
        std::lock_guard<std::mutex> lock(mMutex);
        if (mInstance == nullptr) {
            mInstance = new T;
        }
        return mInstance;
    }

    // Call this only when no other thread uses the instance. A later use creates a new one.
    static void destroy() {
        T* instance = nullptr;
        {
            std::lock_guard<std::mutex> lock(mMutex);
            std::swap(instance, mInstance);
        }
        delete instance;
    }

    static inline T* mInstance = nullptr;

private:
    static inline std::mutex mMutex;  // held while mInstance is created or cleared
};

}  // namespace Util
