// SPDX-License-Identifier: Apache-2.0
// One listening period: from the start of the audio input to its stop.
#pragma once

#include <chrono>
#include <functional>

#include "Reporter.h"
#include "Spotter.h"
#include "wakeup_engine.h"

namespace wakeup {

// Whether the period is canceled, at the latest when this time has passed. Returns as soon as it is canceled.
using CanceledWithin = std::function<bool(std::chrono::milliseconds)>;

// Passes blocks from the audio input to the spotter until it detects the wake word, something fails, or the period is
// canceled. Blocks in the audio input.
Outcome listen(Spotter& spotter, nuance::IWakeupAudioIn& audioIn, const CanceledWithin& canceledWithin);

}  // namespace wakeup
