// SPDX-License-Identifier: Apache-2.0
#include "apps/UiApp.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "lib/Settings.h"

namespace sim {

namespace {

constexpr char kResultFile[] = "/tmp/Result_Orvane_json.txt";
constexpr char kAcknowledgement[] = "db/orvane/manager/response";

std::string contentOf(const char* path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string valueOf(const Extras& extras, const std::string& key) {
    const auto found = extras.find(key);
    return found == extras.end() || found->second.empty() ? std::string() : found->second.front();
}

bool yes(const std::string& argument) {
    if (argument != "yes" && argument != "no") {
        throw std::runtime_error("yes or no, not " + argument);
    }
    return argument == "yes";
}

}  // namespace

UiApp::UiApp(const std::string& id) : Application(id), mMeter(record()), mDucker(record()) {}

void UiApp::onLaunch(const Request& request) {
    const std::string base = kOperationBase;
    if (request.operation == base + "trigger_shot/voice") {
        record().write("wake-up");
        start("Default");
    } else if (request.operation == base + "state_change") {
        showState(request.extras);
    } else if (request.operation == base + "speech_detected") {
        record().write("speech detected");
    }
}

// A screen shows Ready and then says so, which lets the service go on.
void UiApp::showState(const Extras& extras) {
    const std::string state = valueOf(extras, "key_state_change");
    record().write("state", {{"state", state}, {"error", valueOf(extras, "key_error_type")}});
    mMeter.recording(state == "Recording");
    mDucker.duck(state == "Recording" || state == "Processing");
    if (state == "Ready") {
        showResult();
        if (mAcknowledges) {
            settings::set(kAcknowledgement, true);
        }
    }
}

void UiApp::showResult() {
    record().write("result", {{"json", contentOf(kResultFile)}});
}

void UiApp::onMessage(const std::string&, const Entries& data) {
    const auto text = data.find("key_partial_result");
    const auto final = data.find("key_is_final_result");
    record().write("partial", {{"text", text == data.end() ? "" : text->second},
                               {"final", final != data.end() && final->second == "True"}});
}

void UiApp::onOrder(const std::string& order, const std::string& argument) {
    if (order == "start") {
        start(argument);
    } else if (order == "stop" || order == "cancel" || order == "close") {
        tell(order + "_voice_engine");
    } else if (order == "acknowledge") {
        mAcknowledges = yes(argument);
    } else {
        Application::onOrder(order, argument);
    }
}

void UiApp::start(const std::string& mode) {
    tell("start_voice_engine", {{"key_start_mode", {mode}}, {"current_volume", {"5"}}});
}

// The service may be starting, or gone: the bus then says so, and a screen can only wait.
void UiApp::tell(const std::string& operation, const Extras& extras) {
    GVariant* request =
        g_variant_new("(ss@a(aybaay)s)", (kOperationBase + operation).c_str(), "", packExtras(extras), "");
    g_dbus_connection_call(bus().get(), kServiceId, "/org/orvane/Application", "org.orvane.Application1", "Launch",
                           request, nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, 5000, nullptr, nullptr, nullptr);
    record().write("asked", {{"operation", operation}});
}

}  // namespace sim
