// SPDX-License-Identifier: Apache-2.0
#include "sphinx/ModelDefinition.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <optional>
#include <string_view>

namespace sphinx {

namespace {

constexpr std::string_view kMagic = "BMDF";
constexpr std::int64_t kTreeNode = 8;  // bytes
constexpr std::int64_t kPhone = 12;
constexpr std::int64_t kSequenceEntry = 2;
constexpr std::int32_t kMost = 1 << 24;  // the largest count accepted

std::optional<std::int64_t> readCount(std::istream& in) {
    std::int32_t value = 0;
    char bytes[sizeof value];
    if (!in.read(bytes, sizeof bytes)) {
        return std::nullopt;
    }
    std::memcpy(&value, bytes, sizeof value);
    return value >= 0 && value <= kMost ? std::optional<std::int64_t>(value) : std::nullopt;
}

// After the magic number: version, length of a string, the string, ten counts, the phones' names, padding to four
// bytes, the tree, the phones, the length of the sequences, and the sequences.
std::optional<std::int64_t> lengthByHeader(std::istream& in) {
    const auto version = readCount(in);
    const auto text = readCount(in);
    if (!version || !text || !in.seekg(*text, std::ios::cur)) {
        return std::nullopt;
    }
    enum { NAMES, PHONES, TREE_NODES = 8, COUNTS = 10 };
    std::array<std::int64_t, COUNTS> counts{};
    for (auto& count : counts) {
        const auto value = readCount(in);
        if (!value) {
            return std::nullopt;
        }
        count = *value;
    }
    std::string name;
    for (std::int64_t i = 0; i < counts[NAMES]; ++i) {
        std::getline(in, name, '\0');
    }
    const std::int64_t names = in.tellg();
    const std::int64_t sequences = (names + 3) / 4 * 4 + counts[TREE_NODES] * kTreeNode + counts[PHONES] * kPhone;
    const auto entries = in.seekg(sequences) ? readCount(in) : std::nullopt;
    return entries ? std::optional(sequences + 4 + *entries * kSequenceEntry) : std::nullopt;
}

}  // namespace

bool isWholeDefinition(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    char magic[kMagic.size()];
    if (!in.read(magic, sizeof magic) || kMagic != std::string_view(magic, sizeof magic)) {
        return true;
    }
    const auto expected = lengthByHeader(in);
    in.clear();
    in.seekg(0, std::ios::end);
    return expected && *expected <= in.tellg();
}

}  // namespace sphinx
