// SPDX-License-Identifier: Apache-2.0
#include "apps/UiApp.h"

#include <cstdio>
#include <stdexcept>

#include "shared/OwnFile.h"
#include "shared/Settings.h"

namespace sim {

namespace {

constexpr char kResultFile[] = "/tmp/Result_Orvane_json.txt";
constexpr char kAcknowledgement[] = "db/orvane/manager/response";

std::string valueOf(const Extras& extras, const std::string& key) {
    const auto found = extras.find(key);
    return found == extras.end() || found->second.empty() ? std::string() : found->second.front();
}

bool yes(const std::string& argument) {
    if (argument != "yes" && argument != "no") {
        throw std::runtime_error("the argument must be yes or no, not " + argument);
    }
    return argument == "yes";
}

}  // namespace

UiApp::UiApp(const std::string& id) : Application(id), mMeter(record()), mDucker(record()) {}

void UiApp::onLaunch(const Request& request) {
    const std::string base = kOperationBase;
    if (request.operation == base + "trigger_shot/voice") {
        record().write("wake word detected");
        start("Default");
    } else if (request.operation == base + "state_change") {
        showState(request.extras);
    } else if (request.operation == base + "speech_detected") {
        record().write("speech detected");
    }
}

// A UI shows the result and then acknowledges Ready, which the service waits for.
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
    record().write("result", {{"json", contentOfOwnFile(kResultFile)}});
}

void UiApp::onMessage(const std::string&, const Entries& data) {
    const auto text = data.find("key_partial_result");
    const auto final = data.find("key_is_final_result");
    record().write("partial", {{"text", text == data.end() ? "" : text->second},
                               {"final", final != data.end() && final->second == "True"}});
}

void UiApp::onControl(const std::string& action, const std::string& argument) {
    if (action == "start") {
        start(argument);
    } else if (action == "stop" || action == "cancel" || action == "close") {
        send(action + "_voice_engine");
    } else if (action == "acknowledge") {
        mAcknowledges = yes(argument);
    } else {
        Application::onControl(action, argument);
    }
}

void UiApp::start(const std::string& mode) {
    send("start_voice_engine", {{"key_start_mode", {mode}}, {"current_volume", {"5"}}});
}

// Ignores the reply: without a service there is nothing that a UI can do.
void UiApp::send(const std::string& operation, const Extras& extras) {
    bus().callAsync({kServiceId, kApplicationPath, kApplicationInterface}, "Launch",
                    Request{kOperationBase + operation, "", extras, "", ""}.arguments(), {5000, false}, nullptr);
    record().write("sent", {{"operation", operation}});
}

}  // namespace sim
