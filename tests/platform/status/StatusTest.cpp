// SPDX-License-Identifier: Apache-2.0
// The status, as another program on a private bus reads it.
#include <gtest/gtest.h>

#include <string>

#include "status/Status.h"
#include "support/OwnConnection.h"
#include "support/PrivateBus.h"

namespace {

constexpr char NAME[] = "org.example.status";
constexpr char PATH[] = "/org/orvane/Status";
constexpr char INTERFACE[] = "org.orvane.Status1";
constexpr char PROPERTIES[] = "org.freedesktop.DBus.Properties";

class AStatus : public testing::Test {
protected:
    bool read(const char* property) {
        const auto answer = mReader.call({NAME, PATH, PROPERTIES}, "Get", gio::Variant::tuple(INTERFACE, property));
        return std::get<0>(answer.fields<gio::Variant>()).as<bool>();
    }

    status::Status mStatus;
    gio::Connection mService = ownConnection(privateBusAddress());
    gio::Connection mReader = ownConnection(privateBusAddress());
    gio::Registration mExport = mStatus.exportOn(mService);
    gio::OwnedName mName = mService.ownName(NAME);
};

TEST_F(AStatus, IsReadAsProperties) {
    EXPECT_FALSE(read("Listening"));
    EXPECT_FALSE(read("RecognizerReady"));
    mStatus.setListening(true);
    EXPECT_TRUE(read("Listening"));
    EXPECT_FALSE(read("RecognizerReady"));
    mStatus.setRecognizerReady(true);
    mStatus.setListening(false);
    EXPECT_FALSE(read("Listening"));
    EXPECT_TRUE(read("RecognizerReady"));
}

TEST_F(AStatus, AnnouncesEachChangeOnce) {
    std::string announced;
    const auto subscription = mReader.subscribe({NAME, PATH, PROPERTIES}, "PropertiesChanged",
                                                [&](const gio::Variant& arguments) { announced += arguments.print(); });
    read("Listening");  // the bus has the subscription
    mStatus.setListening(true);
    mStatus.setListening(true);
    mStatus.setRecognizerReady(true);
    read("Listening");
    mReader.context().run([] {});  // what has arrived is handled
    EXPECT_EQ(
        announced,
        "('org.orvane.Status1', {'Listening': <true>}, [])('org.orvane.Status1', {'RecognizerReady': <true>}, [])");
}

}  // namespace
