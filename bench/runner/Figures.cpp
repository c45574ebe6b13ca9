// SPDX-License-Identifier: Apache-2.0
#include "runner/Figures.h"

#include <nlohmann/json.hpp>
#include <stdexcept>

namespace bench {

void Figures::write(std::ostream& file) const {
    if (!(file << nlohmann::json(mSamples).dump(1) << std::endl)) {
        throw std::runtime_error("cannot write the figures");
    }
}

}  // namespace bench
