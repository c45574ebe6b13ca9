// The service's life on a bus of the tests' own.
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <string>

#include "PrivateBus.h"
#include "app_manager.h"
#include "appfw/Request.h"
#include "lib/gio/Bus.h"

namespace {

constexpr char APP_ID[] = "org.orvane.da-service";

class Service {
public:
    explicit Service(std::string option = "") {
        privateBusAddress();
        int ends[2];
        EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], 1);
        posix_spawn_file_actions_adddup2(&actions, ends[1], 2);
        char program[] = APPFW_SERVICE;
        char* arguments[] = {program, option.empty() ? nullptr : option.data(), nullptr};
        EXPECT_EQ(posix_spawn(&mProcess, program, &actions, nullptr, arguments, environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
        mOutput = fdopen(ends[0], "r");
    }
    ~Service() {
        if (mProcess != 0) {
            kill(mProcess, SIGKILL);
            wait();
        }
        fclose(mOutput);
    }
    pid_t process() const { return mProcess; }

    // The next line; empty at the end.
    std::string line() {
        char text[500] = "";
        std::string line = fgets(text, sizeof text, mOutput) ? text : "";
        return line.substr(0, line.find('\n'));
    }
    std::string lineWith(const std::string& part) {
        std::string found = line();
        while (!found.empty() && found.find(part) == std::string::npos) {
            found = line();
        }
        return found;
    }
    int wait() {
        int status = 0;
        waitpid(mProcess, &status, 0);
        mProcess = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    bool call(const char* method, GVariant* arguments) {
        gio::Error error;
        return gio::Bus::session().call(APP_ID, "/org/orvane/Application", "org.orvane.Application1", method, arguments,
                                        nullptr, error) != nullptr;
    }
    bool launch(const char* operation, const Extras& extras = {}) {
        return call("Launch", g_variant_new("(ss@a(aybaay)s)", operation, "", appfw::toVariant(extras), ""));
    }

private:
    pid_t mProcess = 0;
    FILE* mOutput = nullptr;
};

TEST(AskedForHelp, TheServicePrintsItAndEndsWell) {
    Service service("--help");
    EXPECT_EQ(service.line(), "Usage: orvane-da-service [--help]");
    EXPECT_EQ(service.wait(), 0);
}

TEST(AnUnknownOption, IsToldInOneLineAndEndsWithTwo) {
    Service service("--nonsense");
    EXPECT_NE(service.line().find("--nonsense"), std::string::npos);
    EXPECT_EQ(service.line(), "");
    EXPECT_EQ(service.wait(), 2);
}

class ARunningService : public testing::TestWithParam<int> {
protected:
    void SetUp() override { ASSERT_EQ(mService.line(), "create"); }
    Service mService;
};

TEST_F(ARunningService, GetsRequestsInOrderWithExtrasOfAnyBytes) {
    ASSERT_TRUE(mService.launch("first", {{"list", {true, {"a", "b"}}}, {"word", {false, {"\xff\x01"}}}}));
    ASSERT_TRUE(mService.launch("second"));
    EXPECT_EQ(mService.line(), "operation first");
    EXPECT_EQ(mService.line(), "list[2]");
    EXPECT_EQ(mService.line(), "word=\xff\x01");
    EXPECT_EQ(mService.line(), "operation second");
}

TEST_F(ARunningService, GetsTheReplyOfAnApplicationThatItAsked) {
    ASSERT_TRUE(mService.launch("send"));
    EXPECT_EQ(mService.lineWith("sent"), "sent 0");
    EXPECT_EQ(mService.lineWith("reply"), "reply 0");
    EXPECT_EQ(mService.line(), "word=yes");
}

TEST_F(ARunningService, LearnsAtOnceThatAnApplicationIsNotInstalled) {
    ASSERT_TRUE(mService.launch("missing"));
    EXPECT_EQ(mService.lineWith("sent"), "sent -101");
}

TEST_F(ARunningService, IsKnownByItsProcess) {
    char* id = nullptr;
    ASSERT_EQ(app_manager_get_app_id(mService.process(), &id), APP_MANAGER_ERROR_NONE);
    EXPECT_STREQ(id, APP_ID);
    free(id);
}

TEST_F(ARunningService, EndsInOrderWhenItIsTerminated) {
    app_context_h context = nullptr;
    ASSERT_EQ(app_manager_get_app_context(APP_ID, &context), APP_MANAGER_ERROR_NONE);
    EXPECT_EQ(app_manager_terminate_app(context), APP_MANAGER_ERROR_NONE);
    app_context_destroy(context);
    EXPECT_EQ(mService.lineWith("terminate"), "terminate");
    EXPECT_EQ(mService.wait(), 0);
}

TEST_F(ARunningService, KeepsASecondOneFromStarting) {
    Service second;
    EXPECT_NE(second.line().find("the service runs already"), std::string::npos);
    EXPECT_NE(second.wait(), 0);
}

TEST_P(ARunningService, EndsInOrderAtASignal) {
    kill(mService.process(), GetParam());
    EXPECT_EQ(mService.lineWith("terminate"), "terminate");
    EXPECT_EQ(mService.wait(), 0);
}

INSTANTIATE_TEST_SUITE_P(Signals, ARunningService, testing::Values(SIGTERM, SIGINT));

}  // namespace
