// SPDX-License-Identifier: Apache-2.0
#include "gio/Variant.h"

#include <stdexcept>

#include "gio/GPointer.h"

namespace gio {

namespace {

std::vector<GVariant*> borrow(const std::vector<Variant>& values) {
    std::vector<GVariant*> all;
    all.reserve(values.size());
    for (const Variant& value : values) {
        all.push_back(value.get());
    }
    return all;
}

}  // namespace

GVariant* newText(std::string_view text) {
    if (!g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr)) {
        throw std::invalid_argument("a text is not UTF-8");
    }
    return g_variant_new_take_string(g_strndup(text.data(), text.size()));
}

GVariant* newArray(const std::string& elementType, const std::vector<Variant>& elements) {
    return g_variant_new_array(G_VARIANT_TYPE(elementType.c_str()), borrow(elements).data(), elements.size());
}

GVariant* newTuple(const std::vector<Variant>& fields) {
    return g_variant_new_tuple(borrow(fields).data(), fields.size());
}

Variant child(GVariant* of, std::size_t index) {
    return Variant(g_variant_get_child_value(of, index));
}

std::string Variant::print() const {
    return mValue == nullptr ? "" : Text(g_variant_print(mValue, FALSE)).get();
}

bool Variant::hasType(const std::string& signature) const {
    return mValue != nullptr && g_variant_is_of_type(mValue, G_VARIANT_TYPE(signature.c_str()));
}

void Variant::expectType(const std::string& signature) const {
    if (!hasType(signature)) {
        throw std::runtime_error("a D-Bus value has type " +
                                 std::string(mValue ? g_variant_get_type_string(mValue) : "none") + " instead of " +
                                 signature);
    }
}

}  // namespace gio
