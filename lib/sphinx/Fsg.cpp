// SPDX-License-Identifier: Apache-2.0
#include "sphinx/Fsg.h"

#include "sphinx/Decoder.h"
#include "sphinx/FatalErrors.h"
#include "sphinx/Library.h"

namespace sphinx {

namespace {

// The weight of the grammar relative to the sound, as in the decoder's option "lw".
constexpr float kLanguageWeight = 1.0F;
constexpr char kFailure[] = "cannot build the grammar";

struct FreeList {
    void operator()(gnode_s* list) const noexcept { library().glist_free(list); }
};

}  // namespace

void Fsg::Free::operator()(fsg_model_s* model) const noexcept {
    survived([&] { library().fsg_model_free(model); });
}

Fsg::Fsg(const Decoder& decoder, int states, int start, int final) {
    if (decoder.handle() == nullptr) {
        throw Error("the decoder is lost");
    }
    const bool done = survived([&] {
        mModel.reset(
            library().fsg_model_init("commands", library().ps_get_logmath(decoder.handle()), kLanguageWeight, states));
    });
    if (!done || !mModel) {
        fail(kFailure);
    }
    mModel->start_state = start;
    mModel->final_state = final;
}

// After a fatal error, the model cannot be used or freed.
template <typename Call>
void Fsg::call(const Call& function) {
    if (!mModel || !survived([&] { function(mModel.get()); })) {
        static_cast<void>(mModel.release());
        fail(kFailure);
    }
}

int Fsg::logWeight(double probability) const {
    return static_cast<int>(static_cast<float>(library().logmath_log(mModel->lmath, probability)) * mModel->lw);
}

void Fsg::addWord(int from, int to, const std::string& word, double probability) {
    call([&](fsg_model_s* model) {
        const int id = library().fsg_model_word_add(model, word.c_str());
        library().fsg_model_trans_add(model, from, to, logWeight(probability), id);
    });
}

void Fsg::addSilent(int from, int to, double probability) {
    call([&](fsg_model_s* model) { library().fsg_model_null_trans_add(model, from, to, logWeight(probability)); });
}

void Fsg::close() {
    std::unique_ptr<gnode_s, FreeList> arcs;
    call([&](fsg_model_s* model) { arcs.reset(library().fsg_model_null_trans_closure(model, nullptr)); });
}

}  // namespace sphinx
