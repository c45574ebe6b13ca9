// SPDX-License-Identifier: Apache-2.0
// Running applications, and applications that the bus starts.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>

#include "OtherApp.h"
#include "RunningService.h"
#include "app_control.h"
#include "app_manager.h"
#include "bus/SessionBus.h"

namespace {

bool runs(const char* id) {
    bool running = false;
    EXPECT_EQ(app_manager_is_running(id, &running), APP_MANAGER_ERROR_NONE);
    return running;
}

int terminate(const char* id) {
    app_context_h context = nullptr;
    EXPECT_EQ(app_manager_get_app_context(id, &context), APP_MANAGER_ERROR_NONE);
    const int code = app_manager_terminate_app(context);
    app_context_destroy(context);
    return code;
}

// Empty if no application has this process.
std::string idOf(pid_t process) {
    char* id = nullptr;
    const int code = app_manager_get_app_id(process, &id);
    EXPECT_EQ(code, id ? APP_MANAGER_ERROR_NONE : APP_MANAGER_ERROR_NO_SUCH_APP);
    const std::string copy = id ? id : "";
    free(id);
    return copy;
}

TEST(ARunningApplication, IsFoundByItsIdAndByItsProcess) {
    EXPECT_FALSE(runs(SERVICE_ID));
    RunningService service;
    EXPECT_TRUE(runs(SERVICE_ID));
    EXPECT_EQ(idOf(service.process().id()), SERVICE_ID);
}

TEST(ARunningApplication, IsFoundByItsNewProcessAfterARestart) {
    auto service = std::make_unique<RunningService>();
    const pid_t before = service->process().id();
    EXPECT_EQ(idOf(before), SERVICE_ID);
    service.reset();
    service = std::make_unique<RunningService>();
    EXPECT_EQ(idOf(service->process().id()), SERVICE_ID);
    EXPECT_EQ(idOf(before), "");
}

TEST(ARunningApplication, KeepsItsIdWhenItsProcessOwnsOtherNames) {
    OtherApp app("zz.example.app");
    for (const char* other : {"org.orvane.Focus.Playback", "org.orvane.VoiceControl", "org.freedesktop.Something"}) {
        app.own(other);
    }
    EXPECT_EQ(idOf(getpid()), "zz.example.app");
}

TEST(ARunningApplication, ShutsDownCleanlyWhenItIsTerminated) {
    RunningService service;
    EXPECT_EQ(terminate(SERVICE_ID), APP_MANAGER_ERROR_NONE);
    EXPECT_EQ(service.rest(), "terminate\n");
    EXPECT_EQ(service.wait(), 0);
    EXPECT_FALSE(runs(SERVICE_ID));
}

TEST(ARunningApplication, ThatCannotBeTerminatedReturnsAnError) {
    const OtherApp app("com.example.stubborn");  // does not implement Close
    EXPECT_EQ(terminate("com.example.stubborn"), APP_MANAGER_ERROR_REQUEST_FAILED);
}

TEST(AnApplicationThatDoesNotRun, HasNoContext) {
    for (const char* id : {"com.example.nowhere", "not an id", ""}) {
        app_context_h context = nullptr;
        EXPECT_FALSE(runs(id));
        EXPECT_EQ(app_manager_get_app_context(id, &context), APP_MANAGER_ERROR_NO_SUCH_APP) << id;
        EXPECT_EQ(context, nullptr);
    }
    EXPECT_EQ(app_manager_get_app_context("com.example.nowhere", nullptr), APP_MANAGER_ERROR_INVALID_PARAMETER);
}

TEST(AProcessThatIsNotAnApplication, HasNoId) {
    Program sleeper({"sleep", "infinity"});
    EXPECT_EQ(idOf(sleeper.process().id()), "");
    char* id = nullptr;
    EXPECT_EQ(app_manager_get_app_id(0, &id), APP_MANAGER_ERROR_INVALID_PARAMETER);
    EXPECT_EQ(id, nullptr);
}

// Installs the service on the bus, and removes it again.
class AnInstalledApplication : public testing::Test {
protected:
    AnInstalledApplication() {
        std::filesystem::create_directories(mFile.parent_path());
        std::ofstream(mFile) << "[D-BUS Service]\nName=" << SERVICE_ID << "\nExec=" << APPFW_SERVICE << "\n";
        reload();
    }
    ~AnInstalledApplication() override {
        std::filesystem::remove(mFile);
        reload();
    }
    static void reload() { bus::session().call(gio::messageBus(), "ReloadConfig"); }

    // Terminates the service that the bus has started.
    static void end() {
        EXPECT_EQ(terminate(SERVICE_ID), APP_MANAGER_ERROR_NONE);
        while (runs(SERVICE_ID)) {
            std::this_thread::yield();
        }
    }

    const std::filesystem::path mFile =
        std::filesystem::path(getenv("XDG_DATA_HOME")) / "dbus-1/services" / (std::string(SERVICE_ID) + ".service");
};

TEST_F(AnInstalledApplication, IsStartedByARequestAndReceivesIt) {
    OtherApp other("com.example.other");
    EXPECT_FALSE(runs(SERVICE_ID));
    app_control_h request = nullptr;
    app_control_create(&request);
    app_control_set_app_id(request, SERVICE_ID);
    app_control_set_operation(request, "ask");
    app_control_add_extra_data(request, "app", "com.example.other");
    app_control_add_extra_data(request, "do", "greet");
    EXPECT_EQ(app_control_send_launch_request(request, nullptr, nullptr), APP_CONTROL_ERROR_NONE);
    app_control_destroy(request);
    EXPECT_EQ(other.asked().operation, "greet");
    end();
}

TEST_F(AnInstalledApplication, IsStartedAgainByARequestThatArrivesWhileItShutsDown) {
    OtherApp other("com.example.other");
    Program ending({"env", "SERVICE_ASKS_LAST=org.orvane.da-service", APPFW_SERVICE});
    EXPECT_EQ(ending.line(), "create");
    EXPECT_EQ(terminate(SERVICE_ID), APP_MANAGER_ERROR_NONE);
    EXPECT_EQ(ending.rest(), "terminate\nsent 0\n");
    EXPECT_EQ(ending.wait(), 0);
    EXPECT_EQ(other.asked().operation, "late");
    end();
}

}  // namespace
