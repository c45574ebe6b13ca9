// SPDX-License-Identifier: Apache-2.0
// Another application, with a private connection to the tests' bus.
#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <vector>

#include "appfw/Request.h"
#include "support/OwnConnection.h"

class OtherApp {
public:
    // Connects with this id, or without one.
    explicit OtherApp(const std::string& id = "");
    OtherApp(const OtherApp&) = delete;
    OtherApp& operator=(const OtherApp&) = delete;

    struct Asked {
        std::string operation;
        std::string uri;
        Extras extras;
        std::string sender;
        std::string token;
    };
    struct Answer {
        std::string token;
        int result;
        Extras extras;
    };
    // The next request or answer. Throws std::runtime_error when none arrives.
    Asked asked();
    Answer answered();

    bool ask(const std::string& app, const std::string& operation, const Extras& extras = {},
             const std::string& token = "") const;
    bool reply(const Asked& to, int result, const Extras& extras = {}) const;
    // Returns when the bus has delivered the signal.
    void announce(const std::string& event) const;
    // Sends an empty message to a port and claims to be this application. False if the port refuses it.
    bool message(const std::string& app, const std::string& port, const std::string& claimed) const;
    // From now on, answers every call of its message ports with this error.
    void failCalls(const std::string& error);
    bool call(const std::string& name, const char* method, const gio::Variant& arguments = {}) const;
    void own(const std::string& name);
    void leave();

private:
    void take(gio::MethodCall& call);

    std::mutex mMutex;
    std::condition_variable mCame;
    std::deque<Asked> mAsked;
    std::deque<Answer> mAnswers;
    gio::Connection mBus = ownConnection();
    gio::Registration mApplication;
    gio::Registration mPorts;
    std::vector<gio::OwnedName> mNames;
};
