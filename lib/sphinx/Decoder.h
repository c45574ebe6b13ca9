// SPDX-License-Identifier: Apache-2.0
// Owns a PocketSphinx decoder. After a fatal error of the library, such as a damaged model or a lack of memory, the
// decoder is lost: every later call that needs it throws, and its memory leaks. One thread at a time may use a decoder;
// separate decoders may run on separate threads.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

struct ps_decoder_s;

namespace sphinx {

// The decoder could not be created or rejected its input. what() contains the library's last error.
struct Error : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Command-line style options by name, without the leading dash.
using Options = std::map<std::string, std::string>;

// A word of the best path with its first and last frame. A decoder frame lasts 10 ms.
struct Segment {
    std::string word;
    int firstFrame = 0;
    int lastFrame = 0;
    int probability = 0;  // logarithm, in the decoder's base
};

class Fsg;

class Decoder {
public:
    // Loads the models, which takes from tens of milliseconds to seconds. Throws Error.
    explicit Decoder(const Options& options);
    ~Decoder();
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    // Each replaces the previous search. Throw Error.
    void searchKeyphrases(const std::string& keyphraseFile);
    void searchGrammar(const Fsg& grammar);

    // Begins an utterance and discards the adaptation to the previous person and room.
    void start();
    // `whole`: these are all the samples of the utterance, and they are normalized together.
    void accept(const int16_t* samples, std::size_t count, bool whole = false);
    // Does nothing outside an utterance.
    void finish();

    // The best text so far; may be empty.
    std::string text();
    std::vector<Segment> segments();
    // Converts a probability to the natural logarithm.
    double naturalLog(int probability) const;

    ps_decoder_s* handle() const { return mDecoder.get(); }

private:
    struct Free {
        void operator()(ps_decoder_s* decoder) const noexcept;
    };
    void keepMean();
    template <typename Call>
    void call(const char* failure, const Call& function);

    std::unique_ptr<ps_decoder_s, Free> mDecoder;
    bool mRunning = false;
    std::vector<float> mInitialMean;  // of the spectrum, from the model
};

}  // namespace sphinx
