// SPDX-License-Identifier: Apache-2.0
// Applications that only have a desktop file.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "app_control.h"
#include "support/MainLoop.h"

namespace {

constexpr char APP_ID[] = "com.example.desk";
constexpr char URI[] = "orvanetest:pancakes";

struct Reply {
    int count = 0;
    int result = -99;
};

void onReply(app_control_h, app_control_h, app_control_result_e result, void* data) noexcept {
    auto* reply = static_cast<Reply*>(data);
    *reply = {reply->count + 1, result};
}

// The application writes its command line into a pipe.
class ADesktopApplication : public testing::Test {
protected:
    ADesktopApplication() {
        const std::filesystem::path data = getenv("XDG_DATA_HOME");
        const std::filesystem::path script = data / "desk.sh";
        mPipe = data / "started";
        std::filesystem::create_directories(data / "applications");
        std::ofstream(script) << "echo desk \"$@\" >" << mPipe << "\n";
        std::ofstream(data / "applications" / (std::string(APP_ID) + ".desktop"))
            << "[Desktop Entry]\nType=Application\nName=Desk\nExec=/bin/sh " << script.string()
            << " %u\nMimeType=x-scheme-handler/orvanetest;\n";
        std::ofstream(std::filesystem::path(getenv("XDG_CONFIG_HOME")) / "mimeapps.list")
            << "[Default Applications]\nx-scheme-handler/orvanetest=" << APP_ID << ".desktop\n";
        std::filesystem::remove(mPipe);
        EXPECT_EQ(mkfifo(mPipe.c_str(), 0600), 0);
        app_control_create(&mRequest);
    }
    ~ADesktopApplication() override { app_control_destroy(mRequest); }

    int send() { return app_control_send_launch_request(mRequest, onReply, &mReply); }
    // Sends the request, and waits until the application starts and the reply arrives.
    void expectStart(const std::string& words) {
        ASSERT_EQ(send(), APP_CONTROL_ERROR_NONE);
        std::string written;
        std::getline(std::ifstream(mPipe), written);
        EXPECT_EQ(written, words);
        EXPECT_EQ(mReply.count, 0) << "replies arrive on the main loop";
        EXPECT_TRUE(runMainLoopUntil([this] { return mReply.count == 1; }));
        EXPECT_EQ(mReply.result, APP_CONTROL_RESULT_APP_STARTED);
    }

    app_control_h mRequest = nullptr;
    Reply mReply;
    std::filesystem::path mPipe;
};

TEST_F(ADesktopApplication, IsStartedByItsIdAndTheReplyIsAppStarted) {
    app_control_set_app_id(mRequest, APP_ID);
    expectStart("desk");
}

// A stand-in for systemd's program writes down its arguments and runs the command.
TEST_F(ADesktopApplication, IsStartedByTheUsersServiceManagerUnderSystemd) {
    const std::filesystem::path data = getenv("XDG_DATA_HOME");
    const std::string path = getenv("PATH");
    std::ofstream(data / "systemd-run") << "#!/bin/sh\necho \"$*\" >" << (data / "run").string()
                                        << "\nshift 5\nexec \"$@\"\n";
    std::filesystem::permissions(data / "systemd-run", std::filesystem::perms::owner_all);
    setenv("PATH", (data.string() + ":" + path).c_str(), 1);
    setenv("INVOCATION_ID", "1", 1);
    app_control_set_app_id(mRequest, APP_ID);
    app_control_set_uri(mRequest, URI);
    expectStart(std::string("desk ") + URI);
    std::string arguments;
    std::getline(std::ifstream(data / "run"), arguments);
    EXPECT_EQ(arguments, "--user --collect --quiet --property=ExitType=cgroup -- gio launch " + data.string() +
                             "/applications/" + APP_ID + ".desktop " + URI);
    unsetenv("INVOCATION_ID");
    setenv("PATH", path.c_str(), 1);
}

TEST_F(ADesktopApplication, IsStartedDirectlyWithoutAServiceManager) {
    setenv("INVOCATION_ID", "1", 1);  // inherited, but this user has no manager
    app_control_set_app_id(mRequest, APP_ID);
    expectStart("desk");
    unsetenv("INVOCATION_ID");
}

TEST_F(ADesktopApplication, ReceivesTheUri) {
    app_control_set_app_id(mRequest, APP_ID);
    app_control_set_uri(mRequest, URI);
    expectStart(std::string("desk ") + URI);
}

TEST_F(ADesktopApplication, OpensUrisOfItsSchemeForTheViewOperation) {
    app_control_set_operation(mRequest, APP_CONTROL_OPERATION_VIEW);
    app_control_set_uri(mRequest, URI);
    expectStart(std::string("desk ") + URI);
}

TEST_F(ADesktopApplication, IsNotFoundForAnotherSchemeOrWithoutAUri) {
    app_control_set_operation(mRequest, APP_CONTROL_OPERATION_VIEW);
    for (const char* uri : {"unknownscheme:x", "no uri", ""}) {
        app_control_set_uri(mRequest, uri);
        EXPECT_EQ(send(), APP_CONTROL_ERROR_APP_NOT_FOUND) << uri;
    }
}

TEST_F(ADesktopApplication, DoesNotReceiveARequestWithoutAnIdForAnotherOperation) {
    app_control_set_operation(mRequest, APP_CONTROL_OPERATION_MAIN);
    app_control_set_uri(mRequest, URI);
    EXPECT_EQ(send(), APP_CONTROL_ERROR_INVALID_PARAMETER);
}

}  // namespace
