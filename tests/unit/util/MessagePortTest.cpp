// SPDX-License-Identifier: Apache-2.0
#include "Util/MessagePort.h"

#include "fake/app/FakeMessages.h"
#include "unit/Fixture.h"

using MessagePortTest = PlatformTest;
using Util::MessageData;
using Util::MessagePort;

namespace {

Texts portCalls() {
    return fake::platform().textsOf({"message_port_", "bundle_"});
}

}  // namespace

TEST_F(MessagePortTest, AMessageGoesToTheTargetInKeyOrderAndItsBundleIsFreed) {
    MessagePort port;
    EXPECT_TRUE(port.setTarget("app", "port"));
    MessageData data;
    data.addData("b", "2").addData("a", "1");
    EXPECT_TRUE(port.sendMessage(data));
    EXPECT_EQ(portCalls(), (Texts{"message_port_check_trusted_remote_port(app, port)", "bundle_create()",
                                  "bundle_add_str(a, 1)", "bundle_add_str(b, 2)",
                                  "message_port_send_trusted_message(app, port, a=1 b=2)", "bundle_free()"}));
    EXPECT_EQ(fake::openBundles(), 0);
}

TEST_F(MessagePortTest, NothingIsSentToATargetWithoutThePort) {
    MessagePort port;
    port.setTarget("app", "port");
    fake::setPortExists(false);
    EXPECT_FALSE(port.sendMessage({}));
    EXPECT_EQ(portCalls().size(), 1u);
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "0"));
}

TEST_F(MessagePortTest, AnyTargetCanBeChecked) {
    MessagePort port;
    EXPECT_TRUE(port.isTargetAlive("some.app", "some port"));
    EXPECT_EQ(portCalls(), Texts{"message_port_check_trusted_remote_port(some.app, some port)"});
    EXPECT_TRUE(fake::platform().logged(DLOG_DEBUG, "1"));
}

TEST_F(MessagePortTest, AFailedCheckOfTheTargetIsLoggedAndSendsNothing) {
    MessagePort port;
    fake::platform().answer("message_port_check_trusted_remote_port", -1);
    EXPECT_FALSE(port.sendMessage({}));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "target port is not alive"));
    EXPECT_EQ(portCalls().size(), 1u);
}

TEST_F(MessagePortTest, AMessageWithoutEntriesIsSent) {
    MessagePort port;
    port.setTarget("app", "port");
    EXPECT_TRUE(port.sendMessage({}));
    EXPECT_EQ(portCalls().at(2), "message_port_send_trusted_message(app, port, )");
}

TEST_F(MessagePortTest, AMessageThatThePlatformRefusesCountsAsSent) {
    MessagePort port;
    fake::platform().answer("message_port_send_trusted_message", -5);
    EXPECT_TRUE(port.sendMessage({}));
}

TEST_F(MessagePortTest, WithoutMemoryForABundleNothingIsSent) {
    MessagePort port;
    fake::platform().answer("bundle_create", -12);
    EXPECT_FALSE(port.sendMessage({}));
    EXPECT_EQ(fake::platform().count("message_port_send_trusted_message"), 0u);
}

TEST_F(MessagePortTest, WithALocalPortTheReceiverCanReply) {
    MessagePort port;
    port.setTarget("app", "port");
    ASSERT_TRUE(port.setCallBack(
        "mine", [](MessageData, std::string, std::string, void*) {}, nullptr));
    EXPECT_TRUE(port.sendMessage({}));
    EXPECT_EQ(fake::platform().textsOf({"message_port_send"}),
              Texts{"message_port_send_trusted_message_with_local_port(app, port, , 1)"});
}

TEST_F(MessagePortTest, AnEmptyPortNameCannotBeRegistered) {
    MessagePort port;
    EXPECT_FALSE(port.setCallBack("", nullptr, nullptr));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "set callback fail"));
    EXPECT_TRUE(portCalls().empty());
}

TEST_F(MessagePortTest, ASecondRegistrationIsRefused) {
    MessagePort port;
    auto callback = [](MessageData, std::string, std::string, void*) {};
    EXPECT_TRUE(port.setCallBack("one", callback, nullptr));
    EXPECT_FALSE(port.setCallBack("two", callback, nullptr));
    EXPECT_TRUE(fake::platform().logged(DLOG_ERROR, "set callback fail"));
    EXPECT_EQ(fake::platform().count("message_port_register_trusted_local_port"), 1u);
}

TEST_F(MessagePortTest, AFailedRegistrationCountsAsRegistered) {
    fake::platform().answer("message_port_register_trusted_local_port", -22);
    {
        MessagePort port;
        auto callback = [](MessageData, std::string, std::string, void*) {};
        EXPECT_TRUE(port.setCallBack("one", callback, nullptr));
        EXPECT_FALSE(port.setCallBack("one", callback, nullptr));
    }
    EXPECT_EQ(fake::platform().textsOf({"message_port_unregister"}),
              Texts{"message_port_unregister_trusted_local_port(-22)"});
}

TEST_F(MessagePortTest, AReceivedMessageReachesTheCallbackWithItsSender) {
    MessagePort port;
    MessageData got;
    std::string from;
    int datum = 0;
    void* seen = nullptr;
    port.setCallBack(
        "mine",
        [&](MessageData message, std::string app, std::string remotePort, void* userData) {
            got = message;
            from = app + "/" + remotePort;
            seen = userData;
        },
        &datum);
    bundle message{{{"k", {BUNDLE_TYPE_STR, "v"}}, {"other", {7, "x"}}}};
    fake::receiveMessage(&message, "app", nullptr);
    EXPECT_EQ(got.getDataMap(), (std::map<std::string, std::string>{{"k", "v"}}));
    EXPECT_EQ(from, "app/");
    EXPECT_EQ(seen, &datum);
}

TEST_F(MessagePortTest, ConstructionAndDestructionEachLogAnEmptyDebugLine) {
    { MessagePort port; }
    const auto lines = fake::platform().logs();
    ASSERT_EQ(lines.size(), 2u);
    for (const fake::LogLine& line : lines) {
        EXPECT_EQ(line.priority, DLOG_DEBUG);
        EXPECT_EQ(line.message, "");
    }
    EXPECT_TRUE(portCalls().empty());
}

TEST_F(MessagePortTest, DestructionUnregistersTheLocalPort) {
    {
        MessagePort port;
        port.setCallBack(
            "mine", [](MessageData, std::string, std::string, void*) {}, nullptr);
    }
    EXPECT_EQ(portCalls(), (Texts{"message_port_register_trusted_local_port(mine)",
                                  "message_port_unregister_trusted_local_port(1)"}));
}

TEST_F(MessagePortTest, MessageDataIsAnOrderedMap) {
    MessageData data;
    data.addData("a", "1").addData("a", "2");
    EXPECT_EQ(data["a"], "2");
    EXPECT_EQ(data["new"], "");
    data.removeData("a");
    EXPECT_EQ(data.getDataMap().size(), 1u);
    data.clear();
    EXPECT_TRUE(data.getDataMap().empty());
}
