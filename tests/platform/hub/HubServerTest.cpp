// SPDX-License-Identifier: Apache-2.0
// The simulated hub itself, with requests over its socket that our client never sends.
#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <fstream>

#include "Support.h"

namespace hub_test {

namespace {

sim::hub::Socket connected(int port) {
    sim::hub::Socket client(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<in_port_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    EXPECT_EQ(connect(client.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    return client;
}

void sendText(const sim::hub::Socket& client, const std::string& text) {
    EXPECT_EQ(send(client.get(), text.data(), text.size(), MSG_NOSIGNAL), static_cast<ssize_t>(text.size()));
}

// Everything that the server sends until it closes.
std::string receiveAll(const sim::hub::Socket& client) {
    std::string all;
    char bytes[4096];
    for (ssize_t count = 0; (count = recv(client.get(), bytes, sizeof bytes, 0)) > 0;) {
        all.append(bytes, static_cast<std::size_t>(count));
    }
    return all;
}

class TheSimulatedHub : public WithAHub {
protected:
    void SetUp() override { start(); }
    std::string converse(const std::string& text) {
        const auto client = connected(port());
        sendText(client, text);
        shutdown(client.get(), SHUT_WR);
        return receiveAll(client);
    }
};

std::string request(const std::string& line, const std::string& body = {}) {
    return line + " HTTP/1.1\r\nAuthorization: Bearer token\r\nContent-Length: " + std::to_string(body.size()) +
           "\r\n\r\n" + body;
}

TEST_F(TheSimulatedHub, RepliesToTheRequestsOfOneConnectionInOrder) {
    const std::string account = R"({"guid": "guid", "client_id": "client"})";
    const std::string replies = converse(request("POST /v1/session", account) + request("GET /v1/families"));
    EXPECT_EQ(replies.rfind("HTTP/1.1 200 ", 0), 0U);
    EXPECT_NE(replies.find("{\"session_token\":\"session-1\"}HTTP/1.1 401 "), std::string::npos) << replies;
}

TEST_F(TheSimulatedHub, RefusesAnInvalidBodyAndAnUnknownMethod) {
    EXPECT_EQ(converse(request("POST /v1/session", "not JSON")).rfind("HTTP/1.1 400 ", 0), 0U);
    EXPECT_EQ(converse(request("DELETE /v1/session")).rfind("HTTP/1.1 405 ", 0), 0U);
}

TEST_F(TheSimulatedHub, ClosesAConnectionWithAnInvalidRequestAndServesTheNext) {
    EXPECT_EQ(converse("\r\n\r\n"), "");
    EXPECT_EQ(converse("GET / HTTP/1.1\r\nContent-Length: lots\r\n\r\n"), "");
    EXPECT_EQ(converse("GET / HTTP/1.1\r\nContent-Length: 99999999\r\n\r\n"), "");
    EXPECT_EQ(converse("POST /v1/session HTTP/1.1\r\nContent-Length: 7\r\n\r\nhalf"), "");
    EXPECT_EQ(converse(request("GET /v1/families")).rfind("HTTP/1.1 401 ", 0), 0U);
}

TEST_F(TheSimulatedHub, ServesOthersWhileOneWaitsAndThenEndsAtOnce) {
    setFaults({{{"request", 1}, {"kind", "silent"}}});
    const auto client = connected(port());
    sendText(client, request("GET /v1/families"));
    while (requests().empty()) {
        std::this_thread::yield();
    }
    EXPECT_EQ(converse(request("GET /v1/families")).rfind("HTTP/1.1 401 ", 0), 0U);
    stop();
    EXPECT_EQ(receiveAll(client), "");
}

TEST_F(TheSimulatedHub, KeepsItsHouseholdWhileTheFileIsInvalid) {
    setFamilies({{{"id", "f"}}});
    const Connection connection = openConnection();
    EXPECT_EQ(signIn(connection), KS_SERVER_OK);
    std::ofstream(folder() + "/household.json") << "{";
    const auto log = logOf([&] { EXPECT_EQ(familiesOf(connection).size(), 1U); });
    EXPECT_THAT(log, testing::ElementsAre(testing::HasSubstr("household.json: ")));
}

TEST(AHouseholdFile, IsRefusedIfItIsInvalid) {
    const std::string file = testing::TempDir() + "orvane-household-" + std::to_string(getpid()) + ".json";
    const std::string account = R"({"account": {"guid": "g", "client_id": "c", "access_token": "t"})";
    std::ofstream(file) << account << "}";
    EXPECT_NO_THROW(sim::hub::Household{file});
    for (const char* rest :
         {R"(, "families": {}})", R"(, "families": [{}]})", R"(, "families": [{"id": 1}]})",
          R"(, "families": [{"id": "f", "name": 1}]})", R"(, "families": [{"id": "f", "users": [1]}]})",
          R"(, "faults": [{}]})", R"(, "faults": [{"kind": "flood"}]})", R"(, "faults": [{"kind": "error"}]})",
          R"(, "faults": [{"kind": "body", "body": 1}]})", R"(, "faults": [{"kind": "close", "request": "first"}]})",
          ""}) {
        std::ofstream(file) << account << rest;
        EXPECT_THROW(sim::hub::Household{file}, std::exception) << rest;
    }
    remove(file.c_str());
    EXPECT_THROW(sim::hub::Household{file}, std::exception);
}

}  // namespace

}  // namespace hub_test
