// SPDX-License-Identifier: Apache-2.0
// A connection to a message bus. Calls block for at most their timeout; everything may be called from any thread. The
// handlers of signals, names, and exported objects run on the connection's context, in the order in which the bus sent
// what they handle. An exception that leaves a handler ends the process, except from a method's handler.
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

// An interface of an object. As the source of a signal, an empty field stands for any.
struct Target {
    std::string name;
    std::string path;
    std::string interface;
};

struct CallOptions {
    int milliseconds = 5000;
    bool starts = true;  // the bus starts the receiver if it does not run
};

// The bus itself.
extern const Target kBus;

class Connection {
public:
    // Blocks. Throws std::runtime_error. The connection closes when it is destroyed.
    static Connection open(const std::string& address, const Context& context);
    // The one that this process shares with GIO and its other users, and which does not end the process when it closes.
    static Connection openShared(GBusType type, const Context& context);
    // Does not block. `then` runs on the context, with a connection that is not open if the bus does not answer in
    // time.
    static void openAsync(const std::string& address, const Context& context, unsigned milliseconds,
                          std::function<void(Connection)> then);
    // Never open: each call fails for this reason.
    explicit Connection(std::string whyNot) : mWhyNot(std::move(whyNot)) {}

    Connection(Connection&&) = default;
    Connection& operator=(Connection&& other) noexcept;
    ~Connection() { close(); }

    bool isOpen() const { return mBus && !g_dbus_connection_is_closed(mBus.get()); }
    const std::string& whyNot() const { return mWhyNot; }  // of a connection that never was open
    std::string uniqueName() const;
    const Context& context() const { return mContext; }

    // Returns the arguments of the reply. Throws CallError.
    Variant call(const Target& target, const char* method, const Variant& arguments = {},
                 const CallOptions& options = {}) const;
    // Does not block; `answer` may be empty. Its error is null on success.
    using Answer = std::function<void(const Variant& result, const CallError* error)>;
    void callAsync(const Target& target, const char* method, const Variant& arguments, const CallOptions& options,
                   Answer answer) const;

    // The signal of the source, with this first argument unless it is empty.
    using SignalHandler = std::function<void(const Variant& arguments)>;
    Registration subscribe(const Target& source, const std::string& signal, SignalHandler handler,
                           const std::string& firstArgument = "") const;
    void emitSignal(const std::string& path, const std::string& interface, const std::string& signal,
                    const Variant& arguments) const;
    // Once, when the connection is lost.
    Registration onClosed(std::function<void()> handler) const;

    // The unique name of the owner; empty without one.
    std::string ownerOf(const std::string& name) const;
    bool hasOwner(const std::string& name) const { return !ownerOf(name).empty(); }
    // Takes the name, or returns an empty handle when another connection has it. Throws CallError.
    OwnedName ownName(const std::string& name) const;
    // The unique name of the owner, now and at each change; empty without one.
    using OwnerHandler = std::function<void(const std::string& owner)>;
    Registration watchName(const std::string& name, OwnerHandler handler) const;

    // An exception of `onCall` becomes the error org.freedesktop.DBus.Error.Failed with its text, unless the call is
    // answered already. To answer later, move the call. Properties are read-only. Throws std::runtime_error when the
    // path has the interface already.
    using MethodHandler = std::function<void(MethodCall& call)>;
    using PropertyReader = std::function<Variant(const std::string& name)>;
    Registration exportObject(const std::string& path, const Interface& interface, MethodHandler onCall,
                              PropertyReader onRead = nullptr) const;
    void emitPropertyChanged(const std::string& path, const std::string& interface, const std::string& property,
                             const Variant& value) const;

    // Blocks until everything that was sent has left the process.
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
