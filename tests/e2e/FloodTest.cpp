// SPDX-License-Identifier: Apache-2.0
// A sender that sends more requests than the service accepts.
#include <gtest/gtest.h>

#include "Person.h"
#include "shared/Application.h"
#include "shared/Request.h"

TEST(AFloodOfStartRequests, IsRefusedAndTheNextWakeWordWorks) {
    Person person;
    person.appliance.launch(sim::kUi);
    const sim::Request start{std::string(sim::kOperationBase) + "start_voice_engine", "", {}, "", ""};
    int refused = 0;
    for (int i = 0; i < 3000; ++i) {
        try {
            sim::sendRequest(person.appliance.session(), sim::kServiceId, start);
        } catch (const gio::CallError& error) {
            EXPECT_EQ(error.name(), "org.orvane.Error.TooManyRequests");
            ++refused;
        }
    }
    EXPECT_GT(refused, 0);
    person.appliance.control(sim::kUi, "close");
    person.wakes();
}
