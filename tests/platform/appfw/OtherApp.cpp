// SPDX-License-Identifier: Apache-2.0
#include "OtherApp.h"

#include <chrono>
#include <functional>
#include <stdexcept>

#include "appfw/Bundle.h"
#include "dbus/Interfaces.h"

namespace {

constexpr char PATH[] = "/org/orvane/Application";
constexpr char INTERFACE[] = "org.orvane.Application1";
constexpr char PORT_PATH[] = "/org/orvane/MessagePort";
constexpr char PORT_INTERFACE[] = "org.orvane.MessagePort1";

bool succeeds(const std::function<void()>& call) {
    try {
        call();
        return true;
    } catch (const gio::CallError&) {
        return false;
    }
}

template <typename T>
T next(std::deque<T>& from, std::mutex& mutex, std::condition_variable& came) {
    std::unique_lock lock(mutex);
    if (!came.wait_for(lock, std::chrono::seconds(20), [&] { return !from.empty(); })) {
        throw std::runtime_error("nothing arrives over the bus");
    }
    T first = std::move(from.front());
    from.pop_front();
    return first;
}

}  // namespace

OtherApp::OtherApp(const std::string& id) {
    mApplication = mBus.exportObject(PATH, dbus::interface(INTERFACE), [this](gio::MethodCall& call) { take(call); });
    if (!id.empty()) {
        own(id);
    }
}

void OtherApp::own(const std::string& name) {
    mNames.push_back(mBus.ownName(name));
}

void OtherApp::leave() {
    mApplication.reset();
    mBus.close();
}

OtherApp::Asked OtherApp::asked() {
    return next(mAsked, mMutex, mCame);
}

OtherApp::Answer OtherApp::answered() {
    return next(mAnswers, mMutex, mCame);
}

bool OtherApp::call(const std::string& name, const char* method, const gio::Variant& arguments) const {
    return succeeds([&] { mBus.call({name, PATH, INTERFACE}, method, arguments); });
}

bool OtherApp::ask(const std::string& app, const std::string& operation, const Extras& extras,
                   const std::string& token) const {
    return call(app, "Launch", gio::Variant::tuple(operation, "", appfw::toWire(extras), token));
}

bool OtherApp::reply(const Asked& to, int result, const Extras& extras) const {
    return call(to.sender, "Reply", gio::Variant::tuple(to.token, result, appfw::toWire(extras)));
}

void OtherApp::announce(const std::string& event) const {
    const appfw::Entries data{{gio::Bytes{"key"}, gio::Bytes{"value"}}};
    mBus.emitSignal("/org/orvane/Event", "org.orvane.Event1", "Emitted", gio::Variant::tuple(event, data));
    mBus.call(gio::messageBus(), "GetId");
}

bool OtherApp::message(const std::string& app, const std::string& port, const std::string& claimed) const {
    return succeeds([&] {
        mBus.call({app, PORT_PATH, PORT_INTERFACE}, "Send", gio::Variant::tuple(port, appfw::Entries(), claimed, ""));
    });
}

void OtherApp::failCalls(const std::string& error) {
    mPorts = mBus.exportObject(PORT_PATH, dbus::interface(PORT_INTERFACE),
                               [error](gio::MethodCall& call) { call.fail(error, ""); });
}

void OtherApp::take(gio::MethodCall& call) {
    const std::lock_guard lock(mMutex);
    if (call.method() == "Launch") {
        const auto [operation, uri, extras, token] =
            call.arguments().fields<std::string, std::string, appfw::WireExtras, std::string>();
        mAsked.push_back({operation, uri, appfw::toExtras(extras), call.sender(), token});
    } else if (call.method() == "Reply") {
        const auto [token, result, extras] = call.arguments().fields<std::string, int, appfw::WireExtras>();
        mAnswers.push_back({token, result, appfw::toExtras(extras)});
    } else {
        call.fail("org.freedesktop.DBus.Error.UnknownMethod", "it does not end");
    }
    mCame.notify_all();
    if (!call.isAnswered()) {
        call.reply();
    }
}
