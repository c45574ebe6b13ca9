// SPDX-License-Identifier: Apache-2.0
#include "Records.h"

#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#include "kelso_server.h"

namespace hub {

namespace {

struct FreeList {
    void operator()(GSList* list) const noexcept { g_slist_free_full(list, std::free); }
};

// The record is zeroed beforehand, so the string is null-terminated.
template <std::size_t Size>
void put(char (&field)[Size], const std::string& text) {
    std::memcpy(field, text.data(), lengthThatFits(text, Size));
}

void fill(ks_family_s& record, const Named& family) {
    put(record.family_name, family.name);
    put(record.family_id, family.id);
}

void fill(ks_family_user_s& record, const Named& user) {
    put(record.user_id, user.id);
    put(record.user_name, user.name);
}

template <typename Record>
GSList* makeList(const std::vector<Named>& all) {
    std::unique_ptr<GSList, FreeList> list;
    for (auto named = all.rbegin(); named != all.rend(); ++named) {
        auto* record = static_cast<Record*>(std::calloc(1, sizeof(Record)));
        if (record == nullptr) {
            throw std::bad_alloc();
        }
        fill(*record, *named);
        list.reset(g_slist_prepend(list.release(), record));
    }
    return list.release();
}

}  // namespace

std::size_t lengthThatFits(const std::string& text, std::size_t bytes) {
    if (text.size() < bytes) {
        return text.size();
    }
    const auto continues = [&text](std::size_t at) { return (static_cast<unsigned char>(text[at]) & 0xc0) == 0x80; };
    std::size_t length = bytes - 1;
    while (length > 0 && continues(length)) {
        --length;
    }
    return length;
}

GSList* makeFamilies(const std::vector<Named>& families) {
    return makeList<ks_family_s>(families);
}

GSList* makeUsers(const std::vector<Named>& users) {
    return makeList<ks_family_user_s>(users);
}

}  // namespace hub
