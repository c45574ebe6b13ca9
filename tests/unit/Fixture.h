// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>
#include <pthread.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>

#include "Util/AppControl.h"
#include "Util/Singleton.h"
#include "Util/Sound/SoundStreamWatcher.h"
#include "Util/SystemConfig.h"
#include "fake/MainLoop.h"
#include "fake/Platform.h"
#include "fake/app/FakeAppControl.h"

using Texts = std::vector<std::string>;

inline pid_t thisThread() {
    return static_cast<pid_t>(syscall(SYS_gettid));
}

// Whether the thread waits for something.
inline bool sleeps(pid_t thread) {
    std::ifstream file("/proc/self/task/" + std::to_string(thread) + "/stat");
    std::string line;
    std::getline(file, line);
    return line.find(") S ") != std::string::npos;
}

// While it exists, no thread can be created: the default stack does not fit in the address space.
class NoNewThreads {
public:
    NoNewThreads() {
        EXPECT_EQ(pthread_getattr_default_np(&mUsual), 0);
        pthread_attr_t huge = mUsual;
        EXPECT_EQ(pthread_attr_setstacksize(&huge, size_t{1} << 60), 0);
        EXPECT_EQ(pthread_setattr_default_np(&huge), 0);
    }
    ~NoNewThreads() { EXPECT_EQ(pthread_setattr_default_np(&mUsual), 0); }
    NoNewThreads(const NoNewThreads&) = delete;
    NoNewThreads& operator=(const NoNewThreads&) = delete;

private:
    pthread_attr_t mUsual;
};

// Each test starts with a reset platform and without the product's singletons.
class PlatformTest : public testing::Test {
protected:
    void SetUp() override { fake::platform().reset(); }
    void TearDown() override {
        Util::Singleton<Util::SystemConfig>::destroy();
        Util::Singleton<Util::SoundStreamWatcher>::destroy();
    }
    static Util::SystemConfig& config() { return Util::systemConfig(); }
};

// For tests that send requests. Waits at the end, so that no request reaches the next test.
class SendingTest : public PlatformTest {
protected:
    void TearDown() override {
        drain();
        PlatformTest::TearDown();
    }

    // Waits until the worker has sent all queued requests.
    static void drain() {
        // The marker must not fail.
        for (const char* call :
             {"app_control_create", "app_control_set_app_id", "app_control_set_operation", "app_control_set_uri",
              "app_control_add_extra_data", "app_control_add_extra_data_array", "app_control_send_launch_request",
              "app_control_destroy"}) {
            fake::platform().answer(call, 0);
        }
        static int drains = 0;
        const std::string name = "drain" + std::to_string(++drains);
        Util::AppControlData marker;
        marker.setPackageName(name);
        Util::AppControl::performAppControl(marker);
        ASSERT_TRUE(fake::platform().waitUntil([&] {
            auto texts = fake::launchTexts();
            return !texts.empty() && texts.back() == name + " - -";
        }));
    }

    // The requests that were sent, without markers.
    static Texts sent() {
        drain();
        Texts texts = fake::launchTexts();
        texts.erase(std::remove_if(texts.begin(), texts.end(), [](auto& text) { return text.find("drain") == 0; }),
                    texts.end());
        return texts;
    }
};
