// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <mutex>
#include <string>
#include <vector>

#include "Request.h"
#include "bus/SessionBus.h"

namespace appfw {

// Requests that this process sent and that wait for a reply. Shared by the process. Any thread: replies arrive on the
// IO thread, and callbacks run on the main loop.
class Replies {
public:
    // Returns a token for the request; empty without a callback.
    std::string expect(const app_control_s& request, app_control_reply_cb callback, void* userData);
    // Removes a request that could not be delivered.
    void forget(const std::string& token);
    // The request was delivered to this connection (unique bus name; empty if it is already gone). If it leaves the bus
    // before it replies, the result is a failure.
    void expectFrom(const std::string& token, const std::string& peer);
    // Accepts one reply for each token and ignores unknown tokens.
    void take(const std::string& token, app_control_result_e result, Extras extras);

private:
    struct Expected {
        app_control_s request;
        app_control_reply_cb callback;
        void* userData;
        std::string peer;
    };

    void watchPeers();
    void ownerChanged(const gio::Variant& arguments);
    std::vector<std::string> tokensOf(const std::string& peer);

    std::mutex mMutex;
    std::map<std::string, Expected> mExpected;  // by token
    std::once_flag mWatching;
    gio::Registration mWatch;
};

}  // namespace appfw
