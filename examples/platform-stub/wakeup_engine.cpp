// SPDX-License-Identifier: Apache-2.0
// The wake engine never listens.
#include <wakeup_engine.h>

namespace {

class SilentEngine : public nuance::IWakeupCtx {
public:
    bool Initialize(const std::string&, const std::string&) override { return false; }
    void AttachListener(nuance::IWakeupListener*) override {}
    void AttachAudioIn(nuance::IWakeupAudioIn*) override {}
    bool IsListening() override { return false; }
    void StartListening() override {}
    void CancelListening() override {}
};

}  // namespace

nuance::IWakeupCtx* nuance::IWakeupCtx::Create() {
    return new SilentEngine;
}

void nuance::IWakeupCtx::Destroy(IWakeupCtx* ctx) {
    delete static_cast<SilentEngine*>(ctx);
}
