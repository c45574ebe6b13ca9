// SPDX-License-Identifier: Apache-2.0
#include "status/Status.h"

#include "dbus/Interfaces.h"

namespace status {

namespace {

constexpr char PATH[] = "/org/orvane/Status";
constexpr char INTERFACE[] = "org.orvane.Status1";

}  // namespace

Status::Status() : mValues{{"Listening", false}, {"RecognizerReady", false}} {}

gio::Registration Status::exportOn(const gio::Connection& connection) {
    auto exported = connection.exportObject(PATH, dbus::interface(INTERFACE), nullptr,
                                            [this](const std::string& property) { return read(property); });
    const std::lock_guard lock(mMutex);
    mConnection = &connection;
    return exported;
}

void Status::set(const std::string& property, bool value) {
    // Held while the change is announced, so that the announcements are in the order of the changes.
    const std::lock_guard lock(mMutex);
    bool& known = mValues.at(property);
    if (known == value) {
        return;
    }
    known = value;
    if (mConnection != nullptr) {
        mConnection->emitPropertyChanged(PATH, INTERFACE, property, gio::Variant::of(value));
    }
}

gio::Variant Status::read(const std::string& property) {
    const std::lock_guard lock(mMutex);
    return gio::Variant::of(mValues.at(property));
}

}  // namespace status
