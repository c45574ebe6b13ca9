// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gio/gio.h>

#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace gio {

template <typename T>
struct Codec;

// A D-Bus value, or nothing. Owns one reference. Values are immutable, so threads may share them.
class Variant {
public:
    Variant() = default;
    // Takes ownership of a reference, floating or not. Null makes an empty variant.
    explicit Variant(GVariant* reference) : mValue(reference ? g_variant_take_ref(reference) : nullptr) {}
    Variant(const Variant& other) : mValue(other.mValue ? g_variant_ref(other.mValue) : nullptr) {}
    Variant(Variant&& other) noexcept : mValue(std::exchange(other.mValue, nullptr)) {}
    Variant& operator=(Variant other) noexcept {
        std::swap(mValue, other.mValue);
        return *this;
    }
    ~Variant() { reset(); }

    // Codec.h lists the possible types for T. A Variant is wrapped as v. A string that is not UTF-8 throws
    // std::invalid_argument.
    template <typename T>
    static Variant of(const T& value) {
        return Variant(Codec<Plain<T>>::make(value));
    }
    // The arguments of a method or signal.
    template <typename... T>
    static Variant tuple(const T&... values) {
        return of(std::tuple<Plain<T>...>(values...));
    }

    template <typename T>
    bool is() const {
        return hasType(Codec<T>::type());
    }
    // Throws std::runtime_error if the value has another type.
    template <typename T>
    T as() const {
        expectType(Codec<T>::type());
        return Codec<T>::read(mValue);
    }
    // The arguments of a method or signal, converted like as().
    template <typename... T>
    std::tuple<T...> fields() const {
        return as<std::tuple<T...>>();
    }

    // Borrowed.
    GVariant* get() const { return mValue; }
    explicit operator bool() const { return mValue != nullptr; }
    void reset() {
        if (mValue != nullptr) {
            g_variant_unref(std::exchange(mValue, nullptr));
        }
    }
    // GVariant's text format, without type annotations.
    std::string print() const;

private:
    template <typename T>
    using Plain = std::conditional_t<std::is_convertible_v<T, const char*>, const char*, T>;

    bool hasType(const std::string& signature) const;
    void expectType(const std::string& signature) const;

    GVariant* mValue = nullptr;
};

}  // namespace gio

#include "gio/Codec.h"
