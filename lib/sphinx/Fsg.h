// SPDX-License-Identifier: Apache-2.0
// Builds a finite-state grammar and owns it. All functions throw Error if memory runs out; the grammar is then lost.
#pragma once

#include <memory>
#include <string>

struct fsg_model_s;

namespace sphinx {

class Decoder;

class Fsg {
public:
    // States are numbered from 0. The weights use the decoder's base of logarithms.
    Fsg(const Decoder& decoder, int states, int start, int final);

    // Add an arc with or without a word. probability: from 0 (never) to 1.
    void addWord(int from, int to, const std::string& word, double probability = 1.0);
    void addSilent(int from, int to, double probability = 1.0);
    // Call this after adding the last arc.
    void close();

    fsg_model_s* handle() const { return mModel.get(); }

private:
    struct Free {
        void operator()(fsg_model_s* model) const noexcept;
    };
    template <typename Call>
    void call(const Call& function);
    int logWeight(double probability) const;

    std::unique_ptr<fsg_model_s, Free> mModel;
};

}  // namespace sphinx
