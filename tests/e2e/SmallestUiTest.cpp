// SPDX-License-Identifier: Apache-2.0
// The example of docs/ui-protocol.md in the place of the appliance's own UI.
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "Person.h"
#include "lib/Application.h"

namespace {

constexpr int kMostCalls = 3;
constexpr double kAnswerSeconds = 4;

class SmallestUi {
public:
    explicit SmallestUi(sim::Appliance& appliance)
        : mAppliance(appliance),
          mOutput(appliance.folder() / "smallest-ui.txt"),
          mProcess({ORVANE_SMALLEST_UI}, mOutput) {
        mAppliance.until("the smallest UI is on the bus", [this] { return mAppliance.runs(sim::kUi); });
    }

    std::string shown() const {
        std::ifstream file(mOutput);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool shows(const std::string& text) const { return shown().find(text) != std::string::npos; }
    // When, by the clock of the records; not before it was looked for.
    double awaits(const std::string& text, double seconds = 20) const {
        mAppliance.until(
            "the smallest UI shows " + text, [&] { return shows(text); }, seconds);
        return sim::monotonicNow();
    }
    sim::Process& process() { return mProcess; }

private:
    sim::Appliance& mAppliance;
    std::string mOutput;
    sim::Process mProcess;
};

// Says the wake-up word again when it is not answered, as people do.
void wake(Person& person, const SmallestUi& ui) {
    for (int said = 1; !ui.shows("wake-up\n"); ++said) {
        person.says("hey quorbit");
        try {
            ui.awaits("wake-up\n", kAnswerSeconds);
        } catch (const std::runtime_error&) {
            if (said == kMostCalls) {
                throw;
            }
        }
    }
}

void expectInOrder(const std::string& shown, const std::vector<std::string>& lines) {
    size_t from = 0;
    for (const std::string& line : lines) {
        const size_t found = shown.find(line, from);
        ASSERT_NE(found, std::string::npos) << line << " in\n" << shown;
        from = found + line.size();
    }
}

}  // namespace

TEST(TheSmallestUi, IsToldAWholeRequestWhichIsCarriedOutAsSoonAsItAcknowledges) {
    Person person;
    SmallestUi ui(person.appliance);
    wake(person, ui);
    ui.awaits("state Recording None\n");
    person.says("open music");
    const double ready = ui.awaits("state Ready None\n");
    const double launched = person.appliance.await(sim::kMusic, {{"event", "launch"}})["at"];
    EXPECT_LT(launched - ready, 0.9);
    const std::string shown = ui.shown();
    expectInOrder(shown, {"wake-up", "state Recording None", "speech detected", "state Processing None",
                          "state Ready None", "result {", "}"});
    expectInOrder(shown, {"\" final False", "partial \"open music\" final True"});
    EXPECT_EQ(person.appliance.countEver(sim::kUi, {}), 0);
}

TEST(TheSmallestUi, IsOnlyOneOnABusAndEndsWhenItIsAskedToClose) {
    sim::Appliance appliance;
    SmallestUi ui(appliance);
    sim::Process second({ORVANE_SMALLEST_UI}, appliance.folder() / "second.txt");
    EXPECT_EQ(second.wait(), EXIT_FAILURE);
    sim::Bus bus(getenv("DBUS_SESSION_BUS_ADDRESS"));
    bus.call(sim::kUi, "/org/orvane/Application", "org.orvane.Application1", "Close", nullptr);
    EXPECT_EQ(ui.process().wait(), EXIT_SUCCESS);
}

TEST(TheSmallestUi, TakesMessagesOnItsPortOnly) {
    sim::Appliance appliance;
    SmallestUi ui(appliance);
    sim::Bus bus(getenv("DBUS_SESSION_BUS_ADDRESS"));
    const auto send = [&bus](const char* port) {
        bus.call(sim::kUi, "/org/orvane/MessagePort", "org.orvane.MessagePort1", "Send",
                 g_variant_new_parsed("(%s, [(b'key_partial_result', b'open'), (b'key_is_final_result', b'False')],"
                                      " 'org.orvane.da-service', '')",
                                      port));
    };
    EXPECT_THROW(send("elsewhere"), std::runtime_error);
    send("partial");
    ui.awaits("partial \"open\" final False\n");
}
