// SPDX-License-Identifier: Apache-2.0
// Another application, with a connection of its own to the tests' bus.
#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>

#include "appfw/Request.h"

class OtherApp {
public:
    // On the bus under this id, or without one.
    explicit OtherApp(const std::string& id = "");
    ~OtherApp() { leave(); }
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
    // The next request, or answer, that comes. Throws std::runtime_error when none does.
    Asked asked();
    Answer answered();

    bool ask(const std::string& app, const std::string& operation, const Extras& extras = {},
             const std::string& token = "") const;
    bool reply(const Asked& to, int result, const Extras& extras = {}) const;
    // Returns when the bus has passed it on.
    void announce(const std::string& event) const;
    // Sends an empty message to a port and says that it is this application. False when it is refused.
    bool message(const std::string& app, const std::string& port, const std::string& claimed) const;
    // Answers every call with this error from now on.
    void failCalls(const char* error) const;
    bool call(const std::string& name, const char* method, GVariant* arguments) const;
    void own(const std::string& name) const;
    void leave();

private:
    static void onCall(GDBusConnection*, const gchar* sender, const gchar*, const gchar*, const gchar* method,
                       GVariant* arguments, GDBusMethodInvocation* invocation, gpointer self) noexcept;
    void take(const std::string& sender, const std::string& method, GVariant* arguments);

    gio::Object<GDBusConnection> mBus;
    guint mObject = 0;
    std::mutex mMutex;
    std::condition_variable mCame;
    std::deque<Asked> mAsked;
    std::deque<Answer> mAnswers;
};
