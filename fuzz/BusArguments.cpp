// SPDX-License-Identifier: Apache-2.0
// Unchecked arguments of D-Bus methods and signals. The first byte selects the type that the sender uses, and the
// second the types that the receiver expects. The rest is the serialized value.
#include <iterator>
#include <map>
#include <memory>
#include <stdexcept>

#include "Entries.h"
#include "appfw/Request.h"

namespace fuzz {
namespace {

using Properties = std::map<std::string, gio::Variant>;
using MessageEntries = std::vector<std::tuple<gio::Bytes, gio::Bytes>>;

// Types that the platform's objects and subscriptions use.
constexpr const char* kTypes[] = {
    "(ssa(aybaay)s)", "(sia(aybaay))", "(sa(ayay)ss)", "(as)", "(sss)", "(s)", "(u)", "(b)",
    "(a{sv})",        "(sa{sv}as)",    "(ssa{sv}as)",  "(v)",  "(o)",   "()",
};

struct BytesUnref {
    void operator()(GBytes* bytes) const noexcept { g_bytes_unref(bytes); }
};

gio::Variant variantOf(std::string_view bytes, const char* type) {
    const std::unique_ptr<GBytes, BytesUnref> copy(g_bytes_new(bytes.data(), bytes.size()));
    return gio::Variant(g_variant_new_from_bytes(G_VARIANT_TYPE(type), copy.get(), FALSE));
}

template <typename... T>
void readKnown(const gio::Variant& sent) {
    const gio::Variant once = gio::Variant::of(sent.fields<T...>());
    const gio::Variant twice = gio::Variant::of(once.fields<T...>());
    require(g_variant_equal(once.get(), twice.get()) != FALSE, "arguments survive a round trip");
}

template <typename... T>
void read(const gio::Variant& sent) {
    if (sent.is<std::tuple<T...>>()) {
        return readKnown<T...>(sent);
    }
    bool thrown = false;
    try {
        sent.fields<T...>();
    } catch (const std::runtime_error&) {
        thrown = true;
    }
    require(thrown, "arguments of another type are refused");
}

constexpr void (*kReaders[])(const gio::Variant&) = {
    read<std::string, std::string, appfw::WireExtras, std::string>,
    read<std::string, std::int32_t, appfw::WireExtras>,
    read<std::string, MessageEntries, std::string, std::string>,
    read<std::vector<std::string>>,
    read<std::string, std::string, std::string>,
    read<std::string>,
    read<std::uint32_t>,
    read<bool>,
    read<Properties>,
    read<std::string, Properties, std::vector<std::string>>,
    read<gio::Variant>,
    read<gio::ObjectPath>,
};

}  // namespace

void busArguments(std::string_view bytes) {
    if (bytes.size() < 2) {
        return;
    }
    const char* type = kTypes[static_cast<unsigned char>(bytes[0]) % std::size(kTypes)];
    const gio::Variant sent = variantOf(bytes.substr(2), type);
    kReaders[static_cast<unsigned char>(bytes[1]) % std::size(kReaders)](sent);
    sent.print();
}

}  // namespace fuzz
