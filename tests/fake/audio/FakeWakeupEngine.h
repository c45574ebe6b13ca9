// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <wakeup_engine.h>

#include <functional>
#include <string>

namespace fake {

// Whether Initialize succeeds from now on.
void setEngineUsable(bool usable);
bool engineExists();
bool engineListens();
nuance::IWakeupAudioIn* engineAudioIn();
// Runs `work` with the engine's listener on another thread and waits for it.
void onEngineThread(const std::function<void(nuance::IWakeupListener&)>& work);

}  // namespace fake
