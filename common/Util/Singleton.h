#pragma once

namespace Util {

// One plain pointer a type, created on first use. Not guarded: the first use and destroy() belong to one thread.
template <typename T>
class Singleton {
public:
    static T* getInstance() {
        if (mInstance == nullptr) {
            mInstance = new T;
        }
        return mInstance;
    }

    static void destroy() {
        delete mInstance;
        mInstance = nullptr;
    }

    static inline T* mInstance = nullptr;
};

}  // namespace Util
