// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <list>

namespace Util {

// Runs callbacks in the order of registration when a watched state changes. Main loop only.
class SystemStateListener {
public:
    using Callback = std::function<void(void*)>;

    SystemStateListener() = default;
    virtual ~SystemStateListener() = default;
    SystemStateListener(const SystemStateListener&) = delete;
    SystemStateListener& operator=(const SystemStateListener&) = delete;

    // The callback must not be empty. It stays registered until the listener is destroyed.
    void addCallback(const Callback& callback, void* userData);

protected:
    void callAll();

private:
    struct Entry {
        Callback callback;
        void* userData;
    };
    std::list<Entry> mCallbacks;
};

}  // namespace Util
