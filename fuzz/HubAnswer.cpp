// SPDX-License-Identifier: Apache-2.0
// A reply of the hub (JSON), or the hub's address, which another application sends. The first byte selects one.
#include <glib.h>

#include <cstring>
#include <exception>
#include <memory>
#include <string>

#include "Entries.h"
#include "curl/Url.h"
#include "hub/Records.h"
#include "hub/Replies.h"
#include "kelso_server.h"

namespace fuzz {
namespace {

struct FreeList {
    void operator()(GSList* list) const noexcept { g_slist_free_full(list, std::free); }
};
using List = std::unique_ptr<GSList, FreeList>;

template <std::size_t Size>
void requireCut(const char (&field)[Size], const std::string& text) {
    const char* end = static_cast<const char*>(std::memchr(field, 0, Size));
    require(end != nullptr, "a field is terminated");
    require(text.compare(0, end - field, field) == 0, "a field is a prefix of its text");
    if (g_utf8_validate(text.data(), static_cast<gssize>(text.size()), nullptr)) {
        require(g_utf8_validate(field, -1, nullptr), "a text is cut between characters");
    }
}

void readFamilies(const std::string& json) {
    const auto named = hub::readList(json, "families", sizeof(ks_family_s::family_id) - 1);
    const List list(hub::makeFamilies(named));
    require(g_slist_length(list.get()) == named.size(), "a record for each family");
    auto family = named.begin();
    for (const GSList* at = list.get(); at != nullptr; at = at->next, ++family) {
        const auto* record = static_cast<const ks_family_s*>(at->data);
        requireCut(record->family_name, family->name);
        require(family->id == record->family_id, "an id is complete");
    }
}

void readUsers(const std::string& json) {
    const auto named = hub::readList(json, "users", sizeof(ks_family_user_s::user_id) - 1);
    const List list(hub::makeUsers(named));
    require(g_slist_length(list.get()) == named.size(), "a record for each user");
    auto user = named.begin();
    for (const GSList* at = list.get(); at != nullptr; at = at->next, ++user) {
        const auto* record = static_cast<const ks_family_user_s*>(at->data);
        requireCut(record->user_name, user->name);
        require(user->id == record->user_id, "an id is complete");
    }
}

void readAddress(const std::string& address) {
    const curl::Url url(address);
    const std::string base = url.base();
    require(curl::Url(base).base() == base, "a base is its own base");
    require(base.back() != '/', "a base has no slash at its end");
    url.isSecure();
    url.isLoopback();
}

void read(char what, const std::string& text) {
    switch (what) {
        case 'a':
            return readAddress(text);
        case 'f':
            return readFamilies(text);
        case 'u':
            return readUsers(text);
        default:
            require(!hub::readSessionToken(text).empty(), "a token is not empty");
            require(curl::escaped(text).find_first_of("/?#\r\n ") == std::string::npos,
                    "an escaped text remains one part of a path");
    }
}

}  // namespace

void hubAnswer(std::string_view bytes) {
    if (bytes.empty()) {
        return;
    }
    try {
        read(bytes[0], std::string(bytes.substr(1)));
    } catch (const std::exception&) {
        // An invalid reply is refused with an exception.
    }
}

}  // namespace fuzz
