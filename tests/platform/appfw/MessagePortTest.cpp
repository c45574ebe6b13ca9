// SPDX-License-Identifier: Apache-2.0
// Message ports: from this process to itself over the real bus, and from other users' processes.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <string>

#include "OtherApp.h"
#include "appfw/AppId.h"
#include "appfw/Bundle.h"
#include "bus/SessionBus.h"
#include "message_port.h"
#include "support/MainLoop.h"
#include "support/Program.h"

namespace {

constexpr char APP_ID[] = "org.example.messages";

struct Received {
    int messages = 0;
    bundle_s last;
    std::string app;
    std::string port;
};

void onMessage(int, const char* app, const char* port, bool, bundle* message, void* received) noexcept {
    *static_cast<Received*>(received) = {static_cast<Received*>(received)->messages + 1, *message, app ? app : "",
                                         port ? port : "<none>"};
}

class AnApplication : public testing::Test {
protected:
    void SetUp() override {
        mName = bus::session().ownName(APP_ID);
        ASSERT_TRUE(mName);
        appfw::setOwnAppId(APP_ID);
        mId = message_port_register_trusted_local_port("partial", onMessage, &mReceived);
        ASSERT_GT(mId, 0);
    }
    void TearDown() override { message_port_unregister_trusted_local_port(mId); }

    static int send(const char* port, const bundle_s& message) {
        bundle_s copy = message;
        return message_port_send_trusted_message(APP_ID, port, &copy);
    }
    bool receives(int messages) {
        return runMainLoopUntil([=] { return mReceived.messages >= messages; });
    }

    gio::OwnedName mName;
    int mId = 0;
    Received mReceived;
};

TEST_F(AnApplication, ReceivesMessagesOfAnyBytesAndLengthUnchanged) {
    bundle_s message;
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    bundle_add_str(&message, "long", std::string(300000, 'x').c_str());
    bundle_add_str(&message, bytes.c_str(), bytes.c_str());
    bundle_add_str(&message, "empty", "");
    EXPECT_EQ(send("partial", message), MESSAGE_PORT_ERROR_NONE);
    EXPECT_EQ(mReceived.messages, 0) << "only the main loop calls back";
    ASSERT_TRUE(receives(1));
    ASSERT_EQ(mReceived.last.entries.size(), 3U);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(mReceived.last.entries[i].first, message.entries[i].first);
        EXPECT_EQ(mReceived.last.entries[i].second.value, message.entries[i].second.value);
    }
}

TEST_F(AnApplication, AcceptsAMessageWithManyEntries) {
    bundle_s message;
    for (int i = 0; i < 300000; ++i) {
        bundle_add_str(&message, std::to_string(i).c_str(), "");
    }
    EXPECT_EQ(appfw::toBundle(appfw::toEntries(message)).entries.size(), 300000U);
}

TEST_F(AnApplication, ReceivesAMessageWithoutEntries) {
    EXPECT_EQ(send("partial", {}), MESSAGE_PORT_ERROR_NONE);
    ASSERT_TRUE(receives(1));
    EXPECT_TRUE(mReceived.last.entries.empty());
}

TEST_F(AnApplication, ReceivesTheSenderAndItsReplyPortIfThereIsOne) {
    bundle_s message;
    EXPECT_EQ(send("partial", message), MESSAGE_PORT_ERROR_NONE);
    ASSERT_TRUE(receives(1));
    EXPECT_EQ(mReceived.app, APP_ID);
    EXPECT_EQ(mReceived.port, "<none>");
    EXPECT_EQ(message_port_send_trusted_message_with_local_port(APP_ID, "partial", &message, mId),
              MESSAGE_PORT_ERROR_NONE);
    ASSERT_TRUE(receives(2));
    EXPECT_EQ(mReceived.app, APP_ID);
    EXPECT_EQ(mReceived.port, "partial");
    EXPECT_EQ(message_port_send_trusted_message_with_local_port(APP_ID, "partial", &message, mId + 1),
              MESSAGE_PORT_ERROR_INVALID_PARAMETER);
}

TEST_F(AnApplication, RefusesASenderThatClaimsAnotherApplicationsId) {
    const OtherApp other("com.example.other");
    EXPECT_FALSE(other.message(APP_ID, "partial", APP_ID));
    EXPECT_FALSE(other.message(APP_ID, "partial", "com.example.nowhere"));
    EXPECT_TRUE(other.message(APP_ID, "partial", "com.example.other"));
    ASSERT_TRUE(receives(1));
    EXPECT_EQ(mReceived.app, "com.example.other");
    EXPECT_TRUE(other.message(APP_ID, "partial", ""));
    ASSERT_TRUE(receives(2));
    EXPECT_EQ(mReceived.messages, 2);
    EXPECT_EQ(mReceived.app, "");
}

TEST_F(AnApplication, ThatDoesNotReplyCausesAnIoErrorInsteadOfPortNotFound) {
    OtherApp other("com.example.other");
    other.failCalls("org.freedesktop.DBus.Error.NoReply");
    bool exists = true;
    EXPECT_EQ(message_port_check_trusted_remote_port("com.example.other", "partial", &exists),
              MESSAGE_PORT_ERROR_IO_ERROR);
    bundle_s message;
    EXPECT_EQ(message_port_send_trusted_message("com.example.other", "partial", &message), MESSAGE_PORT_ERROR_IO_ERROR);
}

TEST_F(AnApplication, CannotRegisterAPortWithoutAValidName) {
    for (const char* name : {static_cast<const char*>(nullptr), "", "\xff"}) {
        EXPECT_EQ(message_port_register_trusted_local_port(name, onMessage, nullptr),
                  MESSAGE_PORT_ERROR_INVALID_PARAMETER);
    }
}

TEST_F(AnApplication, HasAPortOnlyWhileItIsRegistered) {
    bool exists = false;
    EXPECT_EQ(message_port_check_trusted_remote_port(APP_ID, "partial", &exists), MESSAGE_PORT_ERROR_NONE);
    EXPECT_TRUE(exists);
    EXPECT_EQ(message_port_unregister_trusted_local_port(mId), MESSAGE_PORT_ERROR_NONE);
    EXPECT_EQ(message_port_check_trusted_remote_port(APP_ID, "partial", &exists), MESSAGE_PORT_ERROR_NONE);
    EXPECT_FALSE(exists);
    EXPECT_EQ(send("partial", {}), MESSAGE_PORT_ERROR_PORT_NOT_FOUND);
    EXPECT_EQ(message_port_unregister_trusted_local_port(mId), MESSAGE_PORT_ERROR_PORT_NOT_FOUND);
}

TEST_F(AnApplication, ThatDoesNotRunHasNoPorts) {
    bool exists = true;
    EXPECT_EQ(message_port_check_trusted_remote_port("com.example.nowhere", "partial", &exists),
              MESSAGE_PORT_ERROR_PORT_NOT_FOUND);
    bundle_s message;
    EXPECT_EQ(message_port_send_trusted_message("com.example.nowhere", "partial", &message),
              MESSAGE_PORT_ERROR_PORT_NOT_FOUND);
    EXPECT_EQ(message_port_send_trusted_message("not an id", "partial", &message),
              MESSAGE_PORT_ERROR_INVALID_PARAMETER);
}

TEST_F(AnApplication, ThatRegistersAPortAgainKeepsItsIdAndUsesTheNewCallback) {
    Received later;
    EXPECT_EQ(message_port_register_trusted_local_port("partial", onMessage, &later), mId);
    EXPECT_EQ(send("partial", {}), MESSAGE_PORT_ERROR_NONE);
    EXPECT_TRUE(runMainLoopUntil([&] { return later.messages == 1; }));
    EXPECT_EQ(mReceived.messages, 0);
    EXPECT_EQ(message_port_unregister_trusted_local_port(mId), MESSAGE_PORT_ERROR_NONE);
    EXPECT_EQ(send("partial", {}), MESSAGE_PORT_ERROR_PORT_NOT_FOUND) << "there is one port only";
}

TEST_F(AnApplication, ReceivesNothingAfterUnregisteringThePortNotEvenMessagesThatHaveArrived) {
    Received others;
    const int other = message_port_register_trusted_local_port("other", onMessage, &others);
    send("partial", {});
    message_port_unregister_trusted_local_port(mId);
    send("other", {});
    ASSERT_TRUE(runMainLoopUntil([&] { return others.messages == 1; }));
    EXPECT_EQ(mReceived.messages, 0);
    message_port_unregister_trusted_local_port(other);
}

TEST_F(AnApplication, RefusesCallsFromAnotherUser) {
    if (getuid() != 0) {
        GTEST_SKIP() << "only root can become another user";
    }
    const std::filesystem::path program =
        std::filesystem::temp_directory_path() / ("orvane-stranger-" + std::to_string(getpid()));
    std::filesystem::copy_file(APPFW_STRANGER, program);  // the build directory may be readable only by root
    Program friendly({program, APP_ID, "partial"});
    EXPECT_EQ(friendly.line(), "0 0");
    ASSERT_TRUE(receives(1));
    Program stranger({"setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", program, APP_ID, "partial"});
    EXPECT_EQ(stranger.line(), "-302 -302");
    EXPECT_EQ(send("partial", {}), MESSAGE_PORT_ERROR_NONE);
    ASSERT_TRUE(receives(2));
    EXPECT_EQ(mReceived.messages, 2);
    std::filesystem::remove(program);
}

}  // namespace
