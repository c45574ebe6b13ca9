// SPDX-License-Identifier: Apache-2.0
#include "WakeupContext.h"

#include <fstream>
#include <new>
#include <system_error>
#include <utility>

#include "RenewedSpotter.h"
#include "dlog.h"

namespace wakeup {

using Listener = nuance::IWakeupListener;

WakeupContext::WakeupContext(SpotterFactory makeSpotter) : mMakeSpotter(std::move(makeSpotter)) {}

bool WakeupContext::Initialize(const std::string& configDirectory, const std::string& configFile) {
    if (IsListening()) {
        mReporter.fail(Listener::NOT_IN_PROPER_STATE, "Initialize while listening");
        return false;
    }
    try {
        auto spotter = load(configDirectory + "/" + configFile);
        mThread.launch();
        mThread.setSpotter(spotter);
        showProblem(spotter ? "" : "cannot use " + configDirectory + "/" + configFile);
        return spotter != nullptr;
    } catch (const ConfigFault& fault) {
        fail(fault.code, fault.detail);
    } catch (const std::system_error& fault) {
        fail(Listener::NOT_ENOUGH_RESOURCE, std::string("thread: ") + fault.what());
    } catch (const std::bad_alloc&) {
        fail(Listener::NOT_ENOUGH_RESOURCE, "memory");
    } catch (const std::exception& fault) {
        fail(Listener::VOCON_INTERNAL_ERROR, fault.what());
    }
    return false;
}

void WakeupContext::fail(Listener::Error code, const std::string& detail) {
    showProblem(detail);
    mReporter.fail(code, detail);
}

void WakeupContext::showProblem(const std::string& problem) {
    mProblems.set(status::Problems::Part::WakeEngine, problem.empty() ? "" : "No wake engine: " + problem);
}

std::shared_ptr<Spotter> WakeupContext::load(const std::string& path) {
    std::ifstream in(path);
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    if (!in) {
        mReporter.warn(Listener::FILE_OPEN_FAILED, path);
        return nullptr;
    }
    const WakeupConfig config = parseWakeupConfig(
        text, [this](Listener::Warning code, const std::string& detail) { mReporter.warn(code, detail); });
    if (config.wakeWord.empty()) {
        mReporter.warn(Listener::WAKEUP_WORD_NOT_SET, path);
        return nullptr;
    }
    auto spotter = std::make_shared<RenewedSpotter>([make = mMakeSpotter, config] { return make(config); });
    dlog_print(DLOG_INFO, "orvane-wakeup", "listens for \"%s\" (%s)", config.wakeWord.c_str(), path.c_str());
    return spotter;
}

void WakeupContext::AttachListener(nuance::IWakeupListener* listener) {
    mReporter.attach(listener);
}

void WakeupContext::AttachAudioIn(nuance::IWakeupAudioIn* audioIn) {
    mThread.setAudioIn(audioIn);
}

bool WakeupContext::IsListening() {
    return mThread.isListening();
}

void WakeupContext::StartListening() {
    if (const auto warning = mThread.start()) {
        mReporter.warn(*warning, "StartListening");
    }
}

void WakeupContext::CancelListening() {
    if (!mThread.hasSpotter()) {
        mReporter.warn(Listener::NOT_INITIALIZED, "CancelListening");
        return;
    }
    mThread.cancel();
}

}  // namespace wakeup
