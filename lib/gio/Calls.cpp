// SPDX-License-Identifier: Apache-2.0
// Calls and signals of a connection.
#include "gio/Connection.h"

namespace gio {

Target messageBus() {
    return {"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus"};
}

namespace {

using SignalHandler = Connection::SignalHandler;

const char* orAny(const std::string& text) {
    return text.empty() ? nullptr : text.c_str();
}

GDBusCallFlags flagsOf(const CallOptions& options) {
    return options.starts ? G_DBUS_CALL_FLAGS_NONE : G_DBUS_CALL_FLAGS_NO_AUTO_START;
}

void onAnswer(GObject* bus, GAsyncResult* result, gpointer data) noexcept {
    const std::unique_ptr<Connection::Answer> answer(static_cast<Connection::Answer*>(data));
    Error error;
    const Variant reply(g_dbus_connection_call_finish(reinterpret_cast<GDBusConnection*>(bus), result, error.out()));
    if (reply) {
        (*answer)(reply, nullptr);
    } else {
        const CallError failure(error);
        (*answer)(reply, &failure);
    }
}

// Owned by the registration, like the data of an exported object.
struct Subscriber : std::enable_shared_from_this<Subscriber> {
    explicit Subscriber(SignalHandler chosen) : handler(std::move(chosen)) {}
    SignalHandler handler;
};

void onSignal(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant* arguments,
              gpointer data) noexcept {
    const auto subscriber = static_cast<Subscriber*>(data)->shared_from_this();
    subscriber->handler(Variant(g_variant_ref(arguments)));
}

}  // namespace

Variant Connection::call(const Target& target, const char* method, const Variant& arguments,
                         const CallOptions& options) const {
    if (!mBus) {
        throw CallError(mWhyNot);
    }
    Error error;
    Variant reply(g_dbus_connection_call_sync(mBus.get(), target.name.c_str(), target.path.c_str(),
                                              target.interface.c_str(), method, arguments.get(), nullptr,
                                              flagsOf(options), options.milliseconds, nullptr, error.out()));
    if (!reply) {
        throw CallError(error);
    }
    return reply;
}

void Connection::callAsync(const Target& target, const char* method, const Variant& arguments,
                           const CallOptions& options, Answer answer) const {
    std::function<void()> start;
    if (mBus) {
        start = [=, bus = share()] {
            g_dbus_connection_call(bus.get(), target.name.c_str(), target.path.c_str(), target.interface.c_str(),
                                   method, arguments.get(), nullptr, flagsOf(options), options.milliseconds, nullptr,
                                   answer ? onAnswer : nullptr, answer ? new Answer(answer) : nullptr);
        };
    } else {
        start = [=, whyNot = mWhyNot] {
            const CallError failure(whyNot);
            answer ? answer({}, &failure) : void();
        };
    }
    g_main_context_is_owner(mContext.get()) ? mContext.run(start) : mContext.post(start);
}

Registration Connection::subscribe(const Target& source, const std::string& signal, SignalHandler handler,
                                   const std::string& firstArgument) const {
    if (!mBus) {
        return {};
    }
    const auto subscriber = std::make_shared<Subscriber>(std::move(handler));
    guint id = 0;
    mContext.run([&] {
        id = g_dbus_connection_signal_subscribe(mBus.get(), orAny(source.name), orAny(source.interface), orAny(signal),
                                                orAny(source.path), orAny(firstArgument), G_DBUS_SIGNAL_FLAGS_NONE,
                                                onSignal, subscriber.get(), nullptr);
    });
    return {mContext, [bus = share(), id, subscriber] { g_dbus_connection_signal_unsubscribe(bus.get(), id); }};
}

void Connection::emitSignal(const std::string& path, const std::string& interface, const std::string& signal,
                            const Variant& arguments) const {
    if (mBus) {
        Error error;
        // Fails only if the connection is lost.
        g_dbus_connection_emit_signal(mBus.get(), nullptr, path.c_str(), interface.c_str(), signal.c_str(),
                                      arguments.get(), error.out());
    }
}

void Connection::emitPropertyChanged(const std::string& path, const std::string& interface, const std::string& property,
                                     const Variant& value) const {
    emitSignal(
        path, "org.freedesktop.DBus.Properties", "PropertiesChanged",
        Variant::tuple(interface, std::map<std::string, Variant>{{property, value}}, std::vector<std::string>()));
}

}  // namespace gio
