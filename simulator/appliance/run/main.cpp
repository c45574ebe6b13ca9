// SPDX-License-Identifier: Apache-2.0
// orvane-appliance: runs a simulated appliance and prints its timeline.
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "appliance/Appliance.h"
#include "appliance/environment/PrivateTmp.h"
#include "appliance/processes/Interrupt.h"
#include "appliance/run/Conversation.h"
#include "appliance/run/Options.h"
#include "appliance/run/SoundServer.h"
#include "appliance/run/Timeline.h"
#include "appliance/sound/Speech.h"

namespace {

constexpr double kCommandSeconds = 2;
constexpr useconds_t kPollMicroseconds = 20000;

void speakOnce(sim::Appliance& appliance, const sim::Options& options) {
    appliance.wakeUp(options.voice);
    if (options.wav.empty()) {
        appliance.say(options.say, options.voice);
    } else {
        appliance.play(options.wav);
    }
    appliance.awaitState("Ready");
    // The service carries the command out after Ready, and a command need not cause any event.
    for (const double end = sim::monotonicNow() + kCommandSeconds; sim::monotonicNow() < end;
         usleep(kPollMicroseconds)) {
        sim::endIfInterrupted();
        appliance.events().read();
    }
}

void listen(sim::Appliance& appliance) {
    puts("          listening to your microphone; Ctrl-C ends");
    fflush(stdout);
    for (; sim::interrupt() == 0 && appliance.service().runs(); usleep(kPollMicroseconds)) {
        appliance.events().read();
    }
}

// Keeps the files that the options name visible, because they may be in /tmp.
void enterPrivateTmp(const sim::Options& options, const std::string& soundServer) {
    std::vector<std::string> shown;
    for (const std::string& path : {options.wav, sim::socketOf(soundServer)}) {
        if (!path.empty()) {
            shown.push_back(path);
        }
    }
    if (!sim::enterPrivateTmp(shown)) {
        fputs("run: this machine does not permit a private /tmp; using the shared one\n", stderr);
    }
}

void use(sim::Appliance& appliance, const sim::Options& options) {
    appliance.service().start();
    appliance.service().awaitRecognizer();
    if (options.microphone) {
        listen(appliance);
    } else if (!options.say.empty() || !options.wav.empty()) {
        speakOnce(appliance, options);
    } else {
        sim::converse(appliance);
    }
    appliance.service().stop();
    appliance.events().read();
}

void run(const sim::Options& options, const std::string& soundServer) {
    sim::Appliance appliance(soundServer);
    sim::Timeline timeline(sim::monotonicNow(), isatty(STDOUT_FILENO) != 0);
    appliance.events().watch([&timeline](const sim::Event& event) { timeline.print(event); });
    try {
        use(appliance, options);
    } catch (const std::exception&) {
        appliance.events().read();
        appliance.service().printEndOfLog();
        throw;
    }
}

}  // namespace

int main(int count, char** words) {
    sim::Options options = sim::readOptions(count, words);
    sim::catchInterrupts();
    try {
        if (!options.wav.empty()) {
            sim::requireSound(options.wav);
            options.wav = std::filesystem::canonical(options.wav);
        }
        const std::string soundServer = options.microphone ? sim::ownSoundServer() : "";
        enterPrivateTmp(options, soundServer);
        run(options, soundServer);
        return 0;
    } catch (const sim::Interrupted& interrupted) {
        fputs("run: interrupted\n", stderr);
        return 128 + interrupted.signal;
    } catch (const std::exception& fault) {
        fprintf(stderr, "run: %s\n", fault.what());
        return 1;
    }
}
