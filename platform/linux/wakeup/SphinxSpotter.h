// SPDX-License-Identifier: Apache-2.0
// A spotter that uses PocketSphinx's keyphrase search. It compares each pronunciation of the wake word with a loop of
// all phones.
#pragma once

#include "Spotter.h"
#include "WakeupConfig.h"
#include "speech/MemoryReturn.h"
#include "sphinx/Decoder.h"

namespace wakeup {

class SphinxSpotter final : public Spotter {
public:
    // Loads the model. Throws ConfigFault, whose code identifies the missing part.
    explicit SphinxSpotter(const WakeupConfig& config);

    void begin() override;
    std::optional<Detection> accept(const int16_t* samples, std::size_t count) override;
    std::optional<Detection> end() override;

private:
    SphinxSpotter(const WakeupConfig& config, const sphinx::Pronunciations& pronunciations);

    std::optional<Detection> detection();
    int confidence(int probability) const;

    const speech::MemoryReturn mMemoryReturn;
    const std::string mWakeWord;
    const double mLogThreshold;
    sphinx::Decoder mDecoder;
};

}  // namespace wakeup
