// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <pocketsphinx.h>
#include <sphinxbase/err.h>
#include <sphinxbase/fsg_model.h>

// Every function of the library that the wrapper calls.
#define ORVANE_SPHINX_FUNCTIONS(F)  \
    F(cmd_ln_free_r)                \
    F(cmd_ln_parse_r)               \
    F(cmn_live_get)                 \
    F(cmn_live_set)                 \
    F(err_set_callback)             \
    F(err_set_logfp)                \
    F(fsg_model_free)               \
    F(fsg_model_init)               \
    F(fsg_model_null_trans_add)     \
    F(fsg_model_null_trans_closure) \
    F(fsg_model_trans_add)          \
    F(fsg_model_word_add)           \
    F(glist_free)                   \
    F(logmath_log)                  \
    F(logmath_log_to_ln)            \
    F(ps_args)                      \
    F(ps_end_utt)                   \
    F(ps_free)                      \
    F(ps_get_feat)                  \
    F(ps_get_hyp)                   \
    F(ps_get_logmath)               \
    F(ps_init)                      \
    F(ps_process_raw)               \
    F(ps_seg_frames)                \
    F(ps_seg_iter)                  \
    F(ps_seg_next)                  \
    F(ps_seg_prob)                  \
    F(ps_seg_word)                  \
    F(ps_set_fsg)                   \
    F(ps_set_kws)                   \
    F(ps_set_search)                \
    F(ps_start_stream)              \
    F(ps_start_utt)

namespace sphinx {

// PocketSphinx, loaded on first use, because it also loads BLAS, and some versions of BLAS start threads.
struct Library {
// A declaration takes no parentheses here. NOLINTNEXTLINE(bugprone-macro-parentheses)
#define ORVANE_SPHINX_POINTER(name) decltype(&::name) name;
    ORVANE_SPHINX_FUNCTIONS(ORVANE_SPHINX_POINTER)
#undef ORVANE_SPHINX_POINTER
};

// Any thread. Throws Error if the library is missing or incomplete. After one successful call, it never throws.
const Library& library();

}  // namespace sphinx
