// SPDX-License-Identifier: Apache-2.0
// Passes samples to another spotter only while a person speaks, including some time before, so that a quiet room takes
// almost no CPU time.
#pragma once

#include <memory>
#include <vector>

#include "Spotter.h"
#include "speech/Dither.h"
#include "speech/SpeechGate.h"

namespace wakeup {

class GatedSpotter final : public Spotter {
public:
    // How much of the sound before the first loud sample is passed on.
    enum History : std::size_t {
        HalfSecond = 16000 / 2,  // the quiet beginning of an H, and enough of the room's noise for PocketSphinx
        TwoSeconds = 16000 * 2,  // all that one decision of the network depends on
    };

    GatedSpotter(std::unique_ptr<Spotter> spotter, double speechMarginDb, History history = HalfSecond);

    void begin() override;
    std::optional<Detection> accept(const int16_t* samples, std::size_t count) override;
    std::optional<Detection> end() override;

private:
    std::optional<Detection> decode();
    void trimHistory();

    const std::unique_ptr<Spotter> mSpotter;
    const std::size_t mHistory;
    speech::SpeechGate mGate;
    speech::Dither mDither;
    std::vector<int16_t> mPending;  // not yet passed on
    bool mSearching = false;
};

}  // namespace wakeup
