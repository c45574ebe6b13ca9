// SPDX-License-Identifier: Apache-2.0
#include "curl/HeaderList.h"

#include <curl/curl.h>

#include <new>

namespace curl {

void HeaderList::append(const std::string& header) {
    curl_slist* const longer = curl_slist_append(mList.get(), header.c_str());
    if (longer == nullptr) {
        throw std::bad_alloc();
    }
    static_cast<void>(mList.release());
    mList.reset(longer);
}

void HeaderList::Free::operator()(curl_slist* list) const noexcept {
    curl_slist_free_all(list);
}

}  // namespace curl
