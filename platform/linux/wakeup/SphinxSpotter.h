// SPDX-License-Identifier: Apache-2.0
// PocketSphinx's keyphrase search behind the spotter's interface: the phrase, said in any of its pronunciations,
// against a loop of all phones.
#pragma once

#include "Spotter.h"
#include "WakeupConfig.h"
#include "speech/MemoryReturn.h"
#include "sphinx/Decoder.h"

namespace wakeup {

class SphinxSpotter final : public Spotter {
public:
    // Loads the model. Throws ConfigFault, the code telling what is missing.
    explicit SphinxSpotter(const WakeupConfig& config);

    void begin() override;
    std::optional<Detection> accept(const int16_t* samples, std::size_t count) override;
    std::optional<Detection> end() override;

private:
    std::optional<Detection> detection();
    int confidence(int probability) const;

    const speech::MemoryReturn mMemoryReturn;
    const std::string mPhrase;
    const double mLogThreshold;
    sphinx::Decoder mDecoder;
};

}  // namespace wakeup
