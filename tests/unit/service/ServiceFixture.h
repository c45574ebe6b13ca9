// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Service.h"
#include "fake/app/FakeAppManager.h"
#include "fake/app/FakeMessages.h"
#include "fake/audio/FakeSound.h"
#include "fake/audio/FakeWakeupEngine.h"
#include "fake/data/FakeSettings.h"
#include "fake/voice/FakeVoice.h"
#include "unit/Fixture.h"

// A service on an appliance that is set up and has a microphone and a network.
class ServiceTest : public SendingTest {
protected:
    void SetUp() override {
        SendingTest::SetUp();
        for (const char* key :
             {"db/pwlock/factory_boot", "db/pwlock/setup_wizard", "memory/refrigerator/OtnProgress", "db/demo_mode"}) {
            fake::setSetting(key, 0);
        }
        fake::setSetting("db/mic_key/status", 1);
        fake::setSetting("db/orvane/setting/lang", 1);
        fake::setSetting("db/setting/lcd_backlight_normal", 30);
        fake::setSetting("db/menu_widget/language", std::string("en_US.UTF-8"));
        // Without a network, no account request is sent.
        fake::setConnection(CONNECTION_TYPE_DISCONNECTED);
    }

    void TearDown() override {
        if (service != nullptr) {
            service->onTerminate();
            service.reset();
        }
        SendingTest::TearDown();
    }

    void create() {
        service = std::make_unique<OrvaneDA::Service>();
        service->onCreate();
        fake::setConnection(CONNECTION_TYPE_ETHERNET);
        fake::changeConnection(CONNECTION_TYPE_ETHERNET);
        fake::platform().forgetCalls();
    }

    // Returns to the state before create().
    void restart() {
        service->onTerminate();
        service.reset();
        SetUp();
    }

    void request(const std::string& operation, std::map<std::string, std::string> extras = {}) {
        app_control_s data{{}, "http://orvane.example/appcontrol/operation/" + operation, {}, std::move(extras), {}};
        app_control_h handle = &data;
        service->onAppControl(handle);
    }

    static std::string state(const std::string& name, const std::string& error) {
        return "org.tizen.orvane-da http://orvane.example/appcontrol/operation/state_change - key_error_type=" + error +
               " key_state_change=" + name;
    }
    // The UI shows Ready at once, so that the service does not wait.
    static void acknowledge() {
        fake::platform().onCall("vconf_get_bool", [](const fake::Call& call) {
            if (call.args.at(0) == "db/orvane/manager/response") {
                fake::setSetting("db/orvane/manager/response", 1);
            }
        });
    }
    static size_t cancels() { return fake::platform().count("vc_mgr_cancel"); }

    std::unique_ptr<OrvaneDA::Service> service;
};
