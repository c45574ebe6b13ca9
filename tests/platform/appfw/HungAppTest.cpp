// SPDX-License-Identifier: Apache-2.0
// Messages to an application whose process is stopped.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>

#include "message_port.h"
#include "support/MainLoop.h"
#include "support/Program.h"

namespace {

constexpr char kApp[] = "com.example.hung";

int check() {
    bool exists = false;
    return message_port_check_trusted_remote_port(kApp, "partial", &exists);
}

int send(const char* text) {
    bundle* message = bundle_create();
    bundle_add_str(message, "text", text);
    const int code = message_port_send_trusted_message(kApp, "partial", message);
    bundle_free(message);
    return code;
}

class AHungApplication : public testing::Test {
protected:
    AHungApplication() {
        EXPECT_EQ(mApp.line(), "ready");
        mApp.process().signal(SIGSTOP);
        EXPECT_EQ(waitpid(mApp.process().id(), nullptr, WUNTRACED), mApp.process().id());  // every thread has stopped
    }

    Program mApp{{APPFW_PORT_OWNER, kApp}};
};

TEST_F(AHungApplication, ReceivesNothingAfterTheFirstMessageUntilItReplies) {
    EXPECT_EQ(send("first"), MESSAGE_PORT_ERROR_IO_ERROR);
    for (int i = 0; i < 300; ++i) {  // waiting for each reply would take a minute
        EXPECT_EQ(check(), MESSAGE_PORT_ERROR_IO_ERROR);
        EXPECT_EQ(send("second"), MESSAGE_PORT_ERROR_IO_ERROR);
    }
    mApp.process().signal(SIGCONT);
    EXPECT_TRUE(runMainLoopUntil([] { return send("later") == MESSAGE_PORT_ERROR_NONE; }));
    EXPECT_EQ(mApp.line(), "first");
    EXPECT_EQ(mApp.line(), "later");
}

TEST_F(AHungApplication, HasNoPortAfterItEnds) {
    EXPECT_EQ(check(), MESSAGE_PORT_ERROR_IO_ERROR);
    mApp.process().kill();
    EXPECT_TRUE(runMainLoopUntil([] { return check() == MESSAGE_PORT_ERROR_PORT_NOT_FOUND; }));
}

}  // namespace
