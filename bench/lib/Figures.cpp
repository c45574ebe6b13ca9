#include "lib/Figures.h"

#include <fstream>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace bench {

void Figures::write(const std::string& path) const {
    std::ofstream file(path);
    if (!(file << nlohmann::json(mSamples).dump(1) << std::endl)) {
        throw std::runtime_error("cannot write " + path);
    }
}

}  // namespace bench
