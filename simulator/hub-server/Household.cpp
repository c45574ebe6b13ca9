// SPDX-License-Identifier: Apache-2.0
#include "hub-server/Household.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "hub-server/Faults.h"

namespace sim::hub {

namespace {

using nlohmann::json;

// The list under `key`; inserts an empty one if it is missing.
json& list(json& object, const char* key) {
    json& found = *object.emplace(key, json::array()).first;
    if (!found.is_array()) {
        throw std::invalid_argument(std::string(key) + " is not a list");
    }
    return found;
}

void checkNamed(json& element) {
    element.at("id").get_ref<const std::string&>();
    element.emplace("name", "").first->get_ref<const std::string&>();
}

// Checks everything that the hub uses later, so that it reports a mistake in the file at once.
json parse(const std::string& text) {
    json content = json::parse(text);
    const json& account = content.at("account");
    for (const char* key : {"guid", "client_id", "access_token"}) {
        account.at(key).get_ref<const std::string&>();
    }
    for (json& family : list(content, "families")) {
        checkNamed(family);
        for (json& user : list(family, "users")) {
            checkNamed(user);
        }
    }
    for (const json& fault : list(content, "faults")) {
        checkFault(fault);
    }
    return content;
}

bool meets(const json& fault, int request) {
    return fault.value("request", request) == request;
}

}  // namespace

Household::Household(const std::string& file) : mFile(file) {
    read();
}

void Household::read() {
    std::ifstream stream(mFile);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    if (text == mText && !mContent.is_null()) {
        return;
    }
    mContent = parse(text);
    mText = text;
    mRequests = 0;
}

json Household::nextFault() {
    try {
        read();
    } catch (const std::exception& fault) {
        fprintf(stderr, "orvane-sim-hub: %s: %s\n", mFile.c_str(), fault.what());
    }
    ++mRequests;
    for (const json& fault : mContent.at("faults")) {
        if (meets(fault, mRequests)) {
            return fault;
        }
    }
    return nullptr;
}

const json* Household::family(const std::string& id) const {
    for (const json& candidate : families()) {
        if (candidate.at("id") == id) {
            return &candidate;
        }
    }
    return nullptr;
}

}  // namespace sim::hub
