// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Controller/VoiceControl.h"
#include "UiRequests.h"
#include "fake/FakeVoice.h"
#include "unit/Fixture.h"

// Collects what a session reports: "state error" on the main path, "recognition state" on the other.
class VoiceTest : public SendingTest {
protected:
    void SetUp() override {
        SendingTest::SetUp();
        OrvaneDA::UiRequests::get().prepare();
    }

    void listenTo(OrvaneDA::VoiceControl& session) {
        using OrvaneDA::wireName;
        session.setStateCallback([this](const OrvaneDA::ClientState& state, const OrvaneDA::ErrorType& error) {
            reports.push_back(std::string(wireName(state)) + " " + wireName(error));
        });
        session.setRecognitionStateCallback([this](const OrvaneDA::ClientState& state, const OrvaneDA::ErrorType&) {
            reports.push_back(std::string("recognition ") + wireName(state));
        });
        session.setPartialResultCallback([this](const std::string& text, bool isFinal) {
            reports.push_back("[" + text + "]" + (isFinal ? "!" : ""));
        });
        fake::platform().forgetCalls();
    }

    static Texts managerCalls() { return fake::platform().textsOf({"vc_mgr_", "ecore_"}); }

    Texts reports;
};
