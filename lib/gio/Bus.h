// SPDX-License-Identifier: Apache-2.0
// The process's connection to a message bus, for the rooms on it. Calls block for at most their time-out and may come
// from any thread; names and objects are served by the IO thread.
#pragma once

#include <functional>
#include <string>

#include "gio/GPointer.h"

namespace gio {

class Bus {
public:
    // The session's; connected on first use. Without a bus isOpen() is false, and every call fails with the reason.
    static Bus& session();

    bool isOpen() const;
    const std::string& whyNot() const { return mWhyNot; }  // of a connection that was never made
    GDBusConnection* connection() const { return mConnection.get(); }

    // Empty on failure, which `error` then tells. Takes floating arguments.
    Variant call(const char* name, const char* path, const char* interface, const char* method, GVariant* arguments,
                 const char* reply, Error& error, int milliseconds = 5000,
                 GDBusCallFlags flags = G_DBUS_CALL_FLAGS_NONE) const;
    // A method of the bus itself.
    Variant ask(const char* method, GVariant* arguments, const char* reply, Error& error) const;

    // On the IO thread: as ask, but without waiting. `then` runs there with the result and is in order with what hear()
    // brings; empty on failure, which the text then tells.
    using Answer = std::function<void(Variant result, const std::string& failure)>;
    void askThen(const char* method, GVariant* arguments, const char* reply, int milliseconds, Answer then) const;
    // Every signal of the bus itself that is about this name, on the IO thread, as long as the process lives.
    void hear(const char* signal, const std::string& name, std::function<void(GVariant* arguments)> handler) const;

    bool hasOwner(const std::string& name) const;
    std::string ownerOf(const std::string& name) const;  // unique name; empty without one
    // Takes the name if nobody has it. False without an error: somebody has it.
    bool own(const std::string& name, Error& error) const;
    // What was sent to the name has arrived when this returns.
    void giveUp(const std::string& name) const;

    // Every call of a method of the interface, on the IO thread; `handler` answers the invocation. Lives as long as the
    // process.
    using Handler = std::function<void(const char* sender, const char* method, GVariant* arguments,
                                       GDBusMethodInvocation* invocation)>;
    bool serve(const char* path, const char* description, Handler handler) const;

    // An interface of read-only properties, asked for on the IO thread. Lives as long as the process.
    using Property = std::function<GVariant*(const char* name)>;
    bool show(const char* path, const char* description, Property property) const;

    // Blocks until everything that was sent has left the process.
    void flush() const;

    // Called once on the IO thread when the bus has gone.
    void whenLost(std::function<void()> then) const;

private:
    Bus();
    bool serveObject(const char* path, const char* description, const GDBusInterfaceVTable& entries, void* data,
                     GDestroyNotify forget) const;

    Object<GDBusConnection> mConnection;
    std::string mWhyNot;
};

// The call failed because nobody has the name, or who has it knows no such method, object or interface.
bool saysNobodyThere(const Error& error);

}  // namespace gio
