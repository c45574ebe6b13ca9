// PocketSphinx's keyphrase search behind the spotter's interface: the phrase, said in any of its pronunciations,
// against a loop of all phones.
#pragma once

#include "lib/sphinx/Decoder.h"
#include "lib/sphinx/MemoryReturn.h"
#include "wakeup/Spotter.h"
#include "wakeup/WakeupConfig.h"

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

    const sphinx::MemoryReturn mMemoryReturn;
    const std::string mPhrase;
    const double mLogThreshold;
    sphinx::Decoder mDecoder;
};

}  // namespace wakeup
