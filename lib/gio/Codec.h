// SPDX-License-Identifier: Apache-2.0
// Conversions between C++ types and D-Bus values. Each type has a signature and conversions to and from a floating
// value. Included by Variant.h.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "gio/Variant.h"

namespace gio {

// A string of arbitrary nonzero bytes: ay with a terminating zero. Reads as empty if the terminator is missing.
struct Bytes {
    std::string text;
};
struct ObjectPath {
    std::string path;
};

// Throws std::invalid_argument for a string that is not UTF-8, because sending it would close the connection.
GVariant* newText(std::string_view text);
GVariant* newArray(const std::string& elementType, const std::vector<Variant>& elements);
GVariant* newTuple(const std::vector<Variant>& fields);
Variant child(GVariant* of, std::size_t index);

template <typename T>
struct Codec;

template <typename T, char Signature, auto Make, auto Read>
struct BasicCodec {
    static std::string type() { return {Signature}; }
    static GVariant* make(T value) { return Make(value); }
    static T read(GVariant* value) { return static_cast<T>(Read(value)); }
};
template <>
struct Codec<std::uint8_t> : BasicCodec<std::uint8_t, 'y', g_variant_new_byte, g_variant_get_byte> {};
template <>
struct Codec<bool> : BasicCodec<bool, 'b', g_variant_new_boolean, g_variant_get_boolean> {};
template <>
struct Codec<std::int32_t> : BasicCodec<std::int32_t, 'i', g_variant_new_int32, g_variant_get_int32> {};
template <>
struct Codec<std::uint32_t> : BasicCodec<std::uint32_t, 'u', g_variant_new_uint32, g_variant_get_uint32> {};
template <>
struct Codec<std::int64_t> : BasicCodec<std::int64_t, 'x', g_variant_new_int64, g_variant_get_int64> {};
template <>
struct Codec<std::uint64_t> : BasicCodec<std::uint64_t, 't', g_variant_new_uint64, g_variant_get_uint64> {};
template <>
struct Codec<double> : BasicCodec<double, 'd', g_variant_new_double, g_variant_get_double> {};

template <>
struct Codec<std::string> {
    static std::string type() { return "s"; }
    static GVariant* make(const std::string& value) { return newText(value); }
    static std::string read(GVariant* value) { return g_variant_get_string(value, nullptr); }
};

// A literal.
template <>
struct Codec<const char*> {
    static std::string type() { return "s"; }
    static GVariant* make(const char* value) { return newText(value); }
};

template <>
struct Codec<Bytes> {
    static std::string type() { return "ay"; }
    static GVariant* make(const Bytes& value) { return g_variant_new_bytestring(value.text.c_str()); }
    static Bytes read(GVariant* value) { return {g_variant_get_bytestring(value)}; }
};

template <>
struct Codec<ObjectPath> {
    static std::string type() { return "o"; }
    static GVariant* make(const ObjectPath& value) { return g_variant_new_object_path(value.path.c_str()); }
    static ObjectPath read(GVariant* value) { return {g_variant_get_string(value, nullptr)}; }
};

template <>
struct Codec<Variant> {
    static std::string type() { return "v"; }
    static GVariant* make(const Variant& value) { return g_variant_new_variant(value.get()); }
    static Variant read(GVariant* value) { return Variant(g_variant_get_variant(value)); }
};

template <typename T>
struct Codec<std::vector<T>> {
    static std::string type() { return "a" + Codec<T>::type(); }
    static GVariant* make(const std::vector<T>& values) {
        std::vector<Variant> elements;
        elements.reserve(values.size());
        for (const T& value : values) {
            elements.emplace_back(Codec<T>::make(value));
        }
        return newArray(Codec<T>::type(), elements);
    }
    static std::vector<T> read(GVariant* value) {
        const std::size_t count = g_variant_n_children(value);
        std::vector<T> values;
        values.reserve(count);
        for (std::size_t i = 0; i < count; ++i) {
            values.push_back(Codec<T>::read(child(value, i).get()));
        }
        return values;
    }
};

template <typename T>
struct Codec<std::map<std::string, T>> {
    static std::string entryType() { return "{s" + Codec<T>::type() + "}"; }
    static std::string type() { return "a" + entryType(); }
    static GVariant* make(const std::map<std::string, T>& values) {
        std::vector<Variant> entries;
        entries.reserve(values.size());
        for (const auto& [key, value] : values) {
            entries.emplace_back(g_variant_new_dict_entry(newText(key), Codec<T>::make(value)));
        }
        return newArray(entryType(), entries);
    }
    static std::map<std::string, T> read(GVariant* value) {
        std::map<std::string, T> values;
        for (std::size_t i = 0; i < g_variant_n_children(value); ++i) {
            const Variant entry = child(value, i);
            values.insert_or_assign(Codec<std::string>::read(child(entry.get(), 0).get()),
                                    Codec<T>::read(child(entry.get(), 1).get()));
        }
        return values;
    }
};

template <typename... T>
struct Codec<std::tuple<T...>> {
    static std::string type() { return "(" + (std::string() + ... + Codec<T>::type()) + ")"; }
    static GVariant* make(const std::tuple<T...>& value) {
        return std::apply([](const T&... field) { return newTuple({Variant(Codec<T>::make(field))...}); }, value);
    }
    static std::tuple<T...> read(GVariant* value) { return readFields(value, std::index_sequence_for<T...>()); }

private:
    template <std::size_t... I>
    static std::tuple<T...> readFields(GVariant* value, std::index_sequence<I...>) {
        return {Codec<T>::read(child(value, I).get())...};
    }
};

}  // namespace gio
