// SPDX-License-Identifier: Apache-2.0
// One listening period, from the start to the stop of the audio input.
#pragma once

#include <chrono>
#include <functional>

#include "Reporter.h"
#include "Spotter.h"
#include "wakeup_engine.h"

namespace wakeup {

// Waits for up to this time and returns whether the listening period is canceled. Returns early if it is canceled.
using CanceledWithin = std::function<bool(std::chrono::milliseconds)>;

// Passes blocks from the audio input to the spotter until it detects the wake word, something fails, or the period is
// canceled. Blocks in the audio input.
Outcome listen(Spotter& spotter, nuance::IWakeupAudioIn& audioIn, const CanceledWithin& canceledWithin);

}  // namespace wakeup
