// SPDX-License-Identifier: Apache-2.0
#include "hub-server/Message.h"

#include <algorithm>
#include <cctype>
#include <sstream>
#include <stdexcept>

namespace sim::hub {

namespace {

constexpr std::size_t kLongest = 1 << 20;
constexpr char kHeadEnd[] = "\r\n\r\n";

std::string lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

Request parseHead(const std::string& head) {
    std::istringstream lines(head);
    std::string line;
    std::getline(lines, line);
    Request request;
    if (!(std::istringstream(line) >> request.method >> request.path)) {
        throw std::runtime_error("there is no request line");
    }
    while (std::getline(lines, line)) {
        const auto colon = line.find(':');
        const auto value = line.find_first_not_of(" \t", colon + 1);
        if (colon != std::string::npos && value != std::string::npos) {
            request.headers[lower(line.substr(0, colon))] = line.substr(value, line.find_last_not_of("\r") + 1 - value);
        }
    }
    return request;
}

std::size_t lengthOf(const Request& request) {
    const std::string length = request.header("content-length");
    const std::size_t bytes = length.empty() ? 0 : std::stoul(length);
    if (bytes > kLongest) {
        throw std::runtime_error("the request is too long");
    }
    return bytes;
}

}  // namespace

std::string Request::header(const std::string& name) const {
    const auto found = headers.find(name);
    return found == headers.end() ? std::string() : found->second;
}

bool Reader::fill() {
    const std::string more = mStream.read();
    mPending += more;
    if (mPending.size() > 2 * kLongest) {
        throw std::runtime_error("the request is too long");
    }
    if (!mPending.empty() && std::isupper(static_cast<unsigned char>(mPending[0])) == 0) {
        throw std::runtime_error("the request line is invalid");
    }
    return !more.empty();
}

std::optional<Request> Reader::next() {
    std::size_t end = 0;
    while ((end = mPending.find(kHeadEnd)) == std::string::npos) {
        if (!fill()) {
            return std::nullopt;
        }
    }
    Request request = parseHead(mPending.substr(0, end));
    const std::size_t start = end + sizeof kHeadEnd - 1;
    const std::size_t length = lengthOf(request);
    while (mPending.size() < start + length) {
        if (!fill()) {
            throw std::runtime_error("the request is incomplete");
        }
    }
    request.body = mPending.substr(start, length);
    mPending.erase(0, start + length);
    return request;
}

std::string textOf(const Answer& answer) {
    std::string text = "HTTP/1.1 " + std::to_string(answer.status) + " -\r\nContent-Type: application/json\r\n";
    if (!answer.location.empty()) {
        text += "Location: " + answer.location + "\r\n";
    }
    return text + "Content-Length: " + std::to_string(answer.body.size()) + "\r\n\r\n" + answer.body;
}

}  // namespace sim::hub
