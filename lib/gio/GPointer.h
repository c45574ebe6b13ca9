// SPDX-License-Identifier: Apache-2.0
// Smart pointers for GLib objects and allocations.
#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>

#include "gio/Variant.h"

namespace gio {

struct ObjectUnref {
    void operator()(void* object) const noexcept { g_object_unref(object); }
};
struct SourceUnref {
    void operator()(GSource* source) const noexcept { g_source_unref(source); }
};
struct GFree {
    void operator()(void* memory) const noexcept { g_free(memory); }
};

template <typename T>
using Object = std::unique_ptr<T, ObjectUnref>;
using Source = std::unique_ptr<GSource, SourceUnref>;
using Text = std::unique_ptr<char, GFree>;

// The out parameter of a GIO call.
class Error {
public:
    Error() = default;
    ~Error() { g_clear_error(&mError); }
    Error(const Error&) = delete;
    Error& operator=(const Error&) = delete;

    GError** out() {
        g_clear_error(&mError);
        return &mError;
    }
    explicit operator bool() const { return mError != nullptr; }
    const GError* get() const { return mError; }
    std::string message() const { return mError ? mError->message : ""; }

private:
    GError* mError = nullptr;
};

}  // namespace gio
