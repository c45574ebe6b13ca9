// SPDX-License-Identifier: Apache-2.0
// The format is that of protocol buffers: each field is a key (its number and its kind), then an integer, or a length
// and bytes.
#include "TinyModel.h"

#include <cstdint>
#include <vector>

namespace onnx {

namespace {

constexpr int kFloat = 1;
constexpr int kInt64 = 7;
constexpr int kBool = 9;

std::string number(uint64_t value) {
    std::string bytes;
    for (; value >= 0x80; value >>= 7) {
        bytes += static_cast<char>(value | 0x80);
    }
    return bytes + static_cast<char>(value);
}

std::string integer(int field, uint64_t value) {
    return number(static_cast<uint64_t>(field) << 3) + number(value);
}

std::string text(int field, const std::string& bytes) {
    return number((static_cast<uint64_t>(field) << 3) | 2) + number(bytes.size()) + bytes;
}

std::string node(const std::string& operation, const std::vector<std::string>& inputs, const std::string& output) {
    std::string body;
    for (const std::string& input : inputs) {
        body += text(1, input);
    }
    return text(1, body + text(2, output) + text(4, operation));
}

// A dimension of length 0 has no fixed length.
std::string tensor(int field, const std::string& name, int type, const std::vector<uint64_t>& shape) {
    std::string dimensions;
    for (const uint64_t length : shape) {
        dimensions += text(1, length > 0 ? integer(1, length) : text(2, "any_" + name));
    }
    return text(field, text(1, name) + text(2, text(1, integer(1, static_cast<uint64_t>(type)) + text(2, dimensions))));
}

}  // namespace

std::string tinyModel() {
    const std::string added("\x00\x00\x20\x41\x00\x00\xa0\x41", 8);  // the floats 10 and 20
    const std::string graph =
        node("Add", {"x", "added"}, "sum") + node("Gather", {"sum", "row"}, "picked") +
        node("Neg", {"picked"}, "negated") + node("Where", {"keep", "picked", "negated"}, "y") + text(2, "tiny") +
        text(5, integer(1, 2) + integer(2, kFloat) + text(8, "added") + text(9, added)) +
        tensor(11, "x", kFloat, {0, 2}) + tensor(11, "row", kInt64, {0}) + tensor(11, "keep", kBool, {1}) +
        tensor(12, "y", kFloat, {0, 2}) + tensor(12, "sum", kFloat, {0, 2});
    const std::string operators = text(8, integer(2, 13));
    return integer(1, 8) + text(7, graph) + operators;
}

}  // namespace onnx
