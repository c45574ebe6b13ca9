// SPDX-License-Identifier: Apache-2.0
// An application of the appliance on the session bus. It answers requests under its id, records them, and ends with a
// Close call. All functions run on the thread that calls run().
#pragma once

#include <string>

#include "lib/Bus.h"
#include "lib/Record.h"
#include "lib/Request.h"

namespace sim {

inline constexpr char kServiceId[] = "org.orvane.da-service";

class Application {
public:
    explicit Application(const std::string& id);
    virtual ~Application() = default;
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    // Returns after Close, SIGTERM, or SIGINT.
    void run();
    void quit() { g_main_loop_quit(mLoop.get()); }

    // Sends nothing when the request wants no reply.
    void reply(const Request& request, int result, const Extras& extras);
    // Emits a platform event.
    void sendEvent(const std::string& event, const Entries& data);

protected:
    virtual void onLaunch(const Request&) {}
    virtual void onMessage(const std::string& /*port*/, const Entries&) {}
    virtual bool hasPort(const std::string&) const { return false; }
    // Called for org.orvane.sim.Control1.Do. Throws std::runtime_error for an unknown action.
    virtual void onControl(const std::string& action, const std::string& argument);

    Bus& bus() { return mBus; }
    Record& record() { return mRecord; }
    const std::string& id() const { return mId; }

private:
    GVariant* onApplicationCall(const std::string& method, const std::string& sender, GVariant* arguments);
    GVariant* onPortCall(const std::string& method, GVariant* arguments);

    std::string mId;
    Record mRecord;
    Bus mBus;
    Pointer<GMainLoop> mLoop;
};

}  // namespace sim
