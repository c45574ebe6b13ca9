// SPDX-License-Identifier: Apache-2.0
// Owners of PocketSphinx's decoder and of its options. A decoder is used by one thread at a time; two decoders may run
// on two threads.
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

// The decoder could not be built or refused its input; what() carries the library's own last complaint.
struct Error : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Command-line style options by name, without the leading dash.
using Options = std::map<std::string, std::string>;

// A word of the best path, with its frames (10 ms each, counted from the start of the utterance, both ends within it).
struct Segment {
    std::string word;
    int firstFrame = 0;
    int lastFrame = 0;
    int probability = 0;  // log domain, of the search at hand
};

class Fsg;

class Decoder {
public:
    // Reads the models, which takes from tens of milliseconds to seconds. Throws Error.
    explicit Decoder(const Options& options);
    ~Decoder();
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;

    // The searches are exclusive: the last one set is the one that runs. Throw Error.
    void searchKeyphrases(const std::string& keyphraseFile);
    void searchGrammar(const Fsg& grammar);

    // Begins an utterance; forgets speaker and room of the one before, ended or not.
    void start();
    // `whole`: these are all samples of the utterance, so that it is normalised as a whole.
    void accept(const int16_t* samples, std::size_t count, bool whole = false);
    // Does nothing when no utterance has begun.
    void finish();

    // The best text until now, empty when there is none.
    std::string text() const;
    std::vector<Segment> segments() const;
    // A probability of the log domain as the natural logarithm.
    double naturalLog(int probability) const;

    ps_decoder_s* handle() const { return mDecoder.get(); }

private:
    struct Free {
        void operator()(ps_decoder_s* decoder) const noexcept;
    };
    std::unique_ptr<ps_decoder_s, Free> mDecoder;
    bool mRunning = false;
    std::vector<float> mInitialMean;  // of the sound's spectrum, as the model came with it
};

}  // namespace sphinx
