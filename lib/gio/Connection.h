// SPDX-License-Identifier: Apache-2.0
// A connection to a message bus. Thread-safe. Calls block for at most their timeout. The handlers of signals, names,
// and exported objects run on the connection's context, in the order in which the bus sent the messages. An exception
// that leaves a handler ends the process, except in a method handler.
#pragma once

#include <functional>
#include <string>

#include "gio/CallError.h"
#include "gio/Context.h"
#include "gio/GPointer.h"
#include "gio/Interface.h"
#include "gio/MethodCall.h"
#include "gio/OwnedName.h"
#include "gio/Registration.h"
#include "gio/Variant.h"

namespace gio {

// An interface of an object. As the source of a signal, an empty field matches any value.
struct Target {
    std::string name;
    std::string path;
    std::string interface;
};

struct CallOptions {
    int milliseconds = 5000;
    bool starts = true;  // the bus starts the receiver if it is not running
};

// The bus itself.
Target messageBus();

class Connection {
public:
    // Blocks. Throws std::runtime_error. Destroying the object closes the connection.
    static Connection open(const std::string& address, const Context& context);
    // The connection that GIO shares within this process. The process does not end when this connection closes.
    static Connection openShared(GBusType type, const Context& context);
    // Does not block. `then` runs on the context; if the bus does not reply in time, it receives a connection that is
    // not open.
    static void openAsync(const std::string& address, const Context& context, unsigned milliseconds,
                          std::function<void(Connection)> then);
    // A connection that is never open: each call fails with this reason.
    explicit Connection(std::string whyNot) : mWhyNot(std::move(whyNot)) {}

    Connection(Connection&&) = default;
    Connection& operator=(Connection&& other) noexcept;
    ~Connection() { close(); }

    bool isOpen() const { return mBus && !g_dbus_connection_is_closed(mBus.get()); }
    const std::string& whyNot() const { return mWhyNot; }  // for a connection that was never open
    std::string uniqueName() const;
    const Context& context() const { return mContext; }

    // Returns the arguments of the reply. Throws CallError.
    Variant call(const Target& target, const char* method, const Variant& arguments = {},
                 const CallOptions& options = {}) const;
    // Does not block; `answer` may be empty. Its error is null on success.
    using Answer = std::function<void(const Variant& result, const CallError* error)>;
    void callAsync(const Target& target, const char* method, const Variant& arguments, const CallOptions& options,
                   Answer answer) const;

    // Subscribes to the source's signal. If `firstArgument` is not empty, the signal's first argument must match it.
    using SignalHandler = std::function<void(const Variant& arguments)>;
    Registration subscribe(const Target& source, const std::string& signal, SignalHandler handler,
                           const std::string& firstArgument = "") const;
    void emitSignal(const std::string& path, const std::string& interface, const std::string& signal,
                    const Variant& arguments) const;
    // Called once, when the connection is lost.
    Registration onClosed(std::function<void()> handler) const;

    // The unique name of the owner; empty without one.
    std::string ownerOf(const std::string& name) const;
    bool hasOwner(const std::string& name) const { return !ownerOf(name).empty(); }
    // Acquires the name, or returns an empty handle if another connection owns it. Throws CallError.
    OwnedName ownName(const std::string& name) const;
    // Reports the unique name of the owner, now and after each change; empty without an owner.
    using OwnerHandler = std::function<void(const std::string& owner)>;
    Registration watchName(const std::string& name, OwnerHandler handler) const;

    // An exception from `onCall` becomes the error org.freedesktop.DBus.Error.Failed with its text, unless the call
    // already has a reply. To reply later, move the call. Properties are read-only. Throws std::runtime_error if the
    // path already has the interface.
    using MethodHandler = std::function<void(MethodCall& call)>;
    using PropertyReader = std::function<Variant(const std::string& name)>;
    Registration exportObject(const std::string& path, const Interface& interface, MethodHandler onCall,
                              PropertyReader onRead = nullptr) const;
    void emitPropertyChanged(const std::string& path, const std::string& interface, const std::string& property,
                             const Variant& value) const;

    // Blocks until all queued messages have been sent.
    void flush() const;
    void close();

private:
    Connection(Object<GDBusConnection> bus, Context context, bool isPrivate);
    std::shared_ptr<GDBusConnection> share() const;

    Object<GDBusConnection> mBus;
    Context mContext = Context::main();
    bool mIsPrivate = false;
    std::string mWhyNot;
};

}  // namespace gio
