// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "gio/GPointer.h"

namespace gio {

// A well-known name that this process's connection owns. Released when the object is destroyed.
class OwnedName {
public:
    OwnedName() = default;
    OwnedName(Object<GDBusConnection> bus, std::string name) : mBus(std::move(bus)), mName(std::move(name)) {}
    OwnedName(OwnedName&&) = default;
    OwnedName& operator=(OwnedName&& other) noexcept {
        std::swap(mBus, other.mBus);
        std::swap(mName, other.mName);
        return *this;
    }
    ~OwnedName() { releaseName(); }

    // Whether the name was acquired.
    explicit operator bool() const { return mBus != nullptr; }
    // Blocks. All messages sent to the name have arrived when this returns.
    void releaseName();

private:
    Object<GDBusConnection> mBus;
    std::string mName;
};

}  // namespace gio
