// SPDX-License-Identifier: Apache-2.0
#include "hub-server/Faults.h"

#include <map>
#include <stdexcept>

#include "hub-server/Bomb.h"

namespace sim::hub {

namespace {

using nlohmann::json;

bool giveError(const Exchange& exchange) {
    exchange.stream.write(textOf({exchange.fault.at("status"), R"({"error": "requested by the household"})", {}}));
    return true;
}

bool sendOn(const Exchange& exchange) {
    exchange.stream.write(textOf({exchange.fault.value("status", 302), "", exchange.fault.at("location")}));
    return true;
}

// The status of the normal reply, unless the fault has one.
int statusOf(const Exchange& exchange) {
    return exchange.fault.value("status", exchange.answer.status);
}

bool giveBody(const Exchange& exchange) {
    exchange.stream.write(textOf({200, exchange.fault.at("body"), {}}));
    return true;
}

bool giveGarbage(const Exchange& exchange) {
    std::string bytes = "{\"families\": [";
    for (int i = 0; i < 4096; ++i) {
        bytes += static_cast<char>(i * 31 % 251);
    }
    exchange.stream.write(textOf({200, bytes, {}}));
    return true;
}

// A client that unpacks the body needs a limit on its size.
bool giveBomb(const Exchange& exchange) {
    const std::string body = gzipBomb(exchange.fault.at("megabytes"));
    exchange.stream.write(
        "HTTP/1.1 200 -\r\nContent-Type: application/json\r\nContent-Encoding: gzip\r\nContent-Length: " +
        std::to_string(body.size()) + "\r\n\r\n" + body);
    return true;
}

bool giveHalf(const Exchange& exchange) {
    const std::string whole = textOf({statusOf(exchange), exchange.answer.body, {}});
    exchange.stream.write(whole.substr(0, whole.size() - (exchange.answer.body.size() + 1) / 2));
    return false;
}

bool stall(const Exchange& exchange) {
    giveHalf(exchange);
    exchange.socket.isLeftWithin(-1);
    return false;
}

bool answerSlowly(const Exchange& exchange) {
    const bool left = exchange.socket.isLeftWithin(exchange.fault.at("milliseconds"));
    if (!left) {
        exchange.stream.write(textOf(exchange.answer));
    }
    return !left;
}

bool trickle(const Exchange& exchange) {
    for (const char letter : textOf(exchange.answer)) {
        exchange.stream.write({letter});
        if (exchange.socket.isLeftWithin(exchange.fault.at("milliseconds"))) {
            return false;
        }
    }
    return true;
}

bool keepSilent(const Exchange& exchange) {
    exchange.socket.isLeftWithin(-1);
    return false;
}

bool close(const Exchange&) {
    return false;
}

// Without a length, the body ends with the connection.
std::string headWithoutLength(const Exchange& exchange) {
    return "HTTP/1.1 " + std::to_string(statusOf(exchange)) + " -\r\nContent-Type: application/json\r\n\r\n";
}

bool cutOff(const Exchange& exchange) {
    const std::string& body = exchange.answer.body;
    exchange.stream.write(headWithoutLength(exchange) + body.substr(0, body.size() / 2));
    exchange.socket.interrupt();
    return false;
}

// Ends when the client closes the connection.
bool neverEnd(const Exchange& exchange) {
    exchange.stream.write(headWithoutLength(exchange) + "{\"families\": [");
    const std::string block(65536, ' ');
    for (;;) {
        exchange.stream.write(block);
    }
}

struct Kind {
    bool (*commit)(const Exchange&);
    const char* number;  // the members that it needs; null: none
    const char* text;
};

const std::map<std::string, Kind>& kinds() {
    static const std::map<std::string, Kind> all{
        {"error", {giveError, "status", nullptr}},
        {"redirect", {sendOn, nullptr, "location"}},
        {"body", {giveBody, nullptr, "body"}},
        {"garbage", {giveGarbage, nullptr, nullptr}},
        {"bomb", {giveBomb, "megabytes", nullptr}},
        {"half", {giveHalf, nullptr, nullptr}},
        {"stall", {stall, nullptr, nullptr}},
        {"slow", {answerSlowly, "milliseconds", nullptr}},
        {"trickle", {trickle, "milliseconds", nullptr}},
        {"silent", {keepSilent, nullptr, nullptr}},
        {"close", {close, nullptr, nullptr}},
        {"cut", {cutOff, nullptr, nullptr}},
        {"endless", {neverEnd, nullptr, nullptr}},
    };
    return all;
}

}  // namespace

void checkFault(const json& fault) {
    const auto kind = kinds().find(fault.at("kind").get<std::string>());
    if (kind == kinds().end()) {
        throw std::invalid_argument("unknown kind of fault: " + fault.dump());
    }
    fault.value("request", 1);
    fault.value("status", 200);
    if (kind->second.number != nullptr) {
        fault.at(kind->second.number).get<int>();
    }
    if (kind->second.text != nullptr) {
        fault.at(kind->second.text).get_ref<const std::string&>();
    }
}

bool misbehave(const Exchange& exchange) {
    return kinds().at(exchange.fault.at("kind")).commit(exchange);
}

}  // namespace sim::hub
