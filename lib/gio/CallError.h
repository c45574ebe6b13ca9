// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdexcept>
#include <string>

namespace gio {

class Error;

// The reason why a D-Bus call failed.
class CallError : public std::runtime_error {
public:
    explicit CallError(const Error& error);
    // Without a connection.
    explicit CallError(const std::string& text) : std::runtime_error(text) {}

    // The D-Bus error's name ("org.freedesktop.DBus.Error.AccessDenied") if the receiver or the bus sent one.
    const std::string& name() const { return mName; }
    // No connection owns the receiver's name, or the receiver does not have the object, interface, or method.
    bool hasNoReceiver() const;
    // The receiver did not reply in time.
    bool isTimeout() const { return mTimeout; }

private:
    std::string mName;
    bool mTimeout = false;
};

}  // namespace gio
