// The process's connection to a message bus, for the rooms on it. Calls block for at most their time-out and may come
// from any thread; names and objects are served by the IO thread.
#pragma once

#include <functional>
#include <string>

#include "lib/gio/GPointer.h"

namespace gio {

class Bus {
public:
    // The session's; connected on first use. Without a bus: one log line at the first failure, and isOpen() is false.
    static Bus& session();

    bool isOpen() const;
    GDBusConnection* connection() const { return mConnection.get(); }

    // Empty on failure, which `error` then tells. Takes floating arguments.
    Variant call(const char* name, const char* path, const char* interface, const char* method, GVariant* arguments,
                 const char* reply, Error& error, int milliseconds = 5000,
                 GDBusCallFlags flags = G_DBUS_CALL_FLAGS_NONE) const;
    // A method of the bus itself.
    Variant ask(const char* method, GVariant* arguments, const char* reply, Error& error) const;

    bool hasOwner(const std::string& name) const;
    std::string ownerOf(const std::string& name) const;  // unique name; empty without one
    // Takes the name if nobody has it.
    bool own(const std::string& name) const;

    // Every call of a method of the interface, on the IO thread; `handler` answers the invocation. Lives as long as the
    // process.
    using Handler = std::function<void(const char* sender, const char* method, GVariant* arguments,
                                       GDBusMethodInvocation* invocation)>;
    bool serve(const char* path, const char* description, Handler handler) const;

    // Blocks until everything that was sent has left the process.
    void flush() const;

    // Called once on the IO thread when the bus has gone.
    void whenLost(std::function<void()> then) const;

private:
    Bus();
    Object<GDBusConnection> mConnection;
};

}  // namespace gio
