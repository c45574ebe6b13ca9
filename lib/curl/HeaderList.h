// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>

struct curl_slist;

namespace curl {

// The headers of a request, each as "Name: value". Must outlive the transfer.
class HeaderList {
public:
    void append(const std::string& header);
    curl_slist* get() const { return mList.get(); }

private:
    struct Free {
        void operator()(curl_slist* list) const noexcept;
    };
    std::unique_ptr<curl_slist, Free> mList;
};

}  // namespace curl
