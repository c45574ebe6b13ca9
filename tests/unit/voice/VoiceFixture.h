// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "Controller/VoiceControl.h"
#include "UiRequests.h"
#include "fake/voice/FakeVoice.h"
#include "unit/Fixture.h"

// Collects what a VoiceControl reports: "STATE ERROR" from the state callback, "recognition STATE" from the recognition
// state callback, and "[TEXT]" from the partial-result callback, with "!" for a final one.
class VoiceTest : public SendingTest {
protected:
    void SetUp() override {
        SendingTest::SetUp();
        OrvaneDA::UiRequests::get().prepare();
    }

    void collectReportsOf(OrvaneDA::VoiceControl& control) {
        using OrvaneDA::wireName;
        control.setStateCallback([this](const OrvaneDA::ClientState& state, const OrvaneDA::ErrorType& error) {
            reports.push_back(std::string(wireName(state)) + " " + wireName(error));
        });
        control.setRecognitionStateCallback([this](const OrvaneDA::ClientState& state, const OrvaneDA::ErrorType&) {
            reports.push_back(std::string("recognition ") + wireName(state));
        });
        control.setPartialResultCallback([this](const std::string& text, bool isFinal) {
            reports.push_back("[" + text + "]" + (isFinal ? "!" : ""));
        });
        fake::platform().forgetCalls();
    }

    static Texts managerCalls() { return fake::platform().textsOf({"vc_mgr_", "ecore_"}); }

    Texts reports;
};
