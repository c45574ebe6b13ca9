// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <vconf.h>

#include <string>

#include "Util/SystemStateListener.h"

namespace Util {

// Watches one key of the settings store. Runs its callbacks only if a notification contains a different value.
class VConfStateListener : public SystemStateListener {
public:
    VConfStateListener(const std::string& key, int value);
    VConfStateListener(const std::string& key, bool value);
    VConfStateListener(const std::string& key, double value);
    VConfStateListener(const std::string& key, const std::string& value);
    ~VConfStateListener() override;

private:
    // The constructor that was used.
    enum ValueType { INT = 0, BOOL = 1, DOUBLE = 2, STRING = 3 };

    VConfStateListener(const std::string& key, ValueType type);
    void subscribe();
    bool update(const keynode_t* node);
    static void vconfNotifyCb(keynode_t* node, void* listener) noexcept;

    std::string mKey;
    [[maybe_unused]] int mValueType;  // kept, although nothing reads it
    // The last known value of each type. A notification is compared with the value of its own type, regardless of the
    // constructor.
    int mIntValue = 0;
    bool mBoolValue = false;
    double mDoubleValue = 0;
    std::string mStringValue;
};

}  // namespace Util
