// SPDX-License-Identifier: Apache-2.0
// The example of docs/ui-protocol.md in place of the appliance's UI.
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "Person.h"
#include "Ui.h"
#include "shared/Settings.h"

namespace {

constexpr int kMostCalls = 3;
constexpr double kAnswerSeconds = 4;

class SmallestUi {
public:
    explicit SmallestUi(sim::Appliance& appliance)
        : mAppliance(appliance),
          mOutput(appliance.folder() / "smallest-ui.txt"),
          mProcess({ORVANE_SMALLEST_UI}, mOutput) {
        sim::until("the smallest UI is on the bus", [this] { return mAppliance.runs(sim::kUi); });
    }

    std::string output() const {
        std::ifstream file(mOutput);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool prints(const std::string& text) const { return output().find(text) != std::string::npos; }
    void awaitOutput(const std::string& text, double seconds = 20) const {
        sim::until(
            "the smallest UI prints " + text, [&] { return prints(text); }, seconds);
    }
    sim::Process& process() { return mProcess; }

private:
    sim::Appliance& mAppliance;
    std::string mOutput;
    sim::Process mProcess;
};

// Says the wake word up to three times, as a person would.
void wake(Person& person, const SmallestUi& ui) {
    for (int said = 1; !ui.prints("wake word\n"); ++said) {
        person.says("hey quorbit");
        try {
            ui.awaitOutput("wake word\n", kAnswerSeconds);
        } catch (const std::runtime_error&) {
            if (said == kMostCalls) {
                throw;
            }
        }
    }
}

void expectInOrder(const std::string& output, const std::vector<std::string>& lines) {
    size_t from = 0;
    for (const std::string& line : lines) {
        const size_t found = output.find(line, from);
        ASSERT_NE(found, std::string::npos) << line << " in\n" << output;
        from = found + line.size();
    }
}

}  // namespace

TEST(TheSmallestUi, ReceivesAWholeRecognitionSessionAndAcknowledgesReady) {
    Person person;
    SmallestUi ui(person.appliance);
    wake(person, ui);
    ui.awaitOutput("state Recording None\n");
    person.says("open music");
    ui.awaitOutput("state Ready None\n");
    sim::until("the smallest UI acknowledges Ready", [] { return sim::settings::getBool(sim::kReadyAcknowledged); });
    person.appliance.await(sim::kMusic, {{"event", "launch"}});
    const std::string shown = ui.output();
    expectInOrder(shown, {"wake word", "state Recording None", "speech detected", "state Processing None",
                          "state Ready None", "result {", "}"});
    expectInOrder(shown, {"\" final False", "partial \"open music\" final True"});
    EXPECT_EQ(person.appliance.events().countEver(sim::kUi, {}), 0);
}

TEST(TheSmallestUi, RunsOncePerBusAndEndsWithAClose) {
    sim::Appliance appliance;
    SmallestUi ui(appliance);
    sim::Process second({ORVANE_SMALLEST_UI}, appliance.folder() / "second.txt");
    EXPECT_EQ(second.wait(), EXIT_FAILURE);
    sim::sendClose(appliance.session(), sim::kUi);
    EXPECT_EQ(ui.process().wait(), EXIT_SUCCESS);
}

TEST(TheSmallestUi, AcceptsPartialResultsOnItsPortOnly) {
    sim::Appliance appliance;
    SmallestUi ui(appliance);
    EXPECT_THROW(sendPartialResult(appliance, "elsewhere", "open"), std::runtime_error);
    sendPartialResult(appliance, "partial", "open");
    ui.awaitOutput("partial \"open\" final False\n");
}
