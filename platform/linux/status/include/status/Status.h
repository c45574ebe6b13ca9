// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <mutex>
#include <string>

#include "gio/Connection.h"

namespace status {

// The service's status on the bus: org.orvane.Status1. Shared by the process. Any thread; nothing here blocks.
class Status {
public:
    Status();

    // Exports the status on the connection, which then announces each change and must outlive the returned
    // registration. Call this once.
    gio::Registration exportOn(const gio::Connection& connection);

    // The wake engine listens for the wake word.
    void setListening(bool listening) { set("Listening", listening); }
    // The recognizer has loaded its models.
    void setRecognizerReady(bool ready) { set("RecognizerReady", ready); }

private:
    void set(const std::string& property, bool value);
    gio::Variant read(const std::string& property);

    std::mutex mMutex;
    std::map<std::string, bool> mValues;
    const gio::Connection* mConnection = nullptr;
};

}  // namespace status
