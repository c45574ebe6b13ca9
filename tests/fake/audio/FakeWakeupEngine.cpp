// SPDX-License-Identifier: Apache-2.0
#include "fake/audio/FakeWakeupEngine.h"

#include <atomic>
#include <thread>

#include "fake/Platform.h"

using fake::platform;

namespace {

class Engine : public nuance::IWakeupCtx {
public:
    bool Initialize(const std::string& directory, const std::string& file) override;
    void AttachListener(nuance::IWakeupListener* attached) override {
        platform().call("IWakeupCtx::AttachListener");
        listener = attached;
    }
    void AttachAudioIn(nuance::IWakeupAudioIn* attached) override {
        platform().call("IWakeupCtx::AttachAudioIn");
        audioIn = attached;
    }
    bool IsListening() override { return listening; }
    void StartListening() override {
        platform().call("IWakeupCtx::StartListening");
        listening = true;
    }
    void CancelListening() override {
        platform().call("IWakeupCtx::CancelListening");
        listening = false;
    }

    nuance::IWakeupListener* listener = nullptr;
    nuance::IWakeupAudioIn* audioIn = nullptr;
    std::atomic<bool> listening{false};
};

std::atomic<bool> usable{true};
std::atomic<Engine*> present{nullptr};

const bool registered = platform().addReset([] { usable = true; });

bool Engine::Initialize(const std::string& directory, const std::string& file) {
    platform().call("IWakeupCtx::Initialize", {directory, file});
    return usable;
}

}  // namespace

nuance::IWakeupCtx* nuance::IWakeupCtx::Create() {
    platform().call("IWakeupCtx::Create");
    present = new Engine;
    return present;
}

void nuance::IWakeupCtx::Destroy(IWakeupCtx* engine) {
    platform().call("IWakeupCtx::Destroy");
    if (present == engine) {
        present = nullptr;
    }
    delete static_cast<Engine*>(engine);
}

namespace fake {

void setEngineUsable(bool value) {
    usable = value;
}

bool engineExists() {
    return present != nullptr;
}

bool engineListens() {
    return present != nullptr && present.load()->listening;
}

nuance::IWakeupAudioIn* engineAudioIn() {
    return present.load()->audioIn;
}

void onEngineThread(const std::function<void(nuance::IWakeupListener&)>& work) {
    Engine* engine = present;
    engine->listening = false;
    std::thread([&] { work(*engine->listener); }).join();
}

}  // namespace fake
