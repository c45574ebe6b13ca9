// SPDX-License-Identifier: Apache-2.0
// Owners of GLib's reference-counted and allocated things.
#pragma once

#include <gio/gio.h>

#include <memory>
#include <string>

namespace gio {

struct ObjectUnref {
    void operator()(void* object) const noexcept { g_object_unref(object); }
};
struct VariantUnref {
    void operator()(GVariant* variant) const noexcept { g_variant_unref(variant); }
};
struct SourceUnref {
    void operator()(GSource* source) const noexcept { g_source_unref(source); }
};
struct GFree {
    void operator()(void* memory) const noexcept { g_free(memory); }
};

template <typename T>
using Object = std::unique_ptr<T, ObjectUnref>;
using Variant = std::unique_ptr<GVariant, VariantUnref>;
using Source = std::unique_ptr<GSource, SourceUnref>;
using Text = std::unique_ptr<char, GFree>;

// Takes the floating reference.
inline Variant sink(GVariant* variant) {
    return Variant(g_variant_ref_sink(variant));
}

// Out parameter of GIO's calls; empties itself.
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
