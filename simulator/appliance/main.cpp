// SPDX-License-Identifier: Apache-2.0
// orvane-appliance: a whole appliance for a while, and its timeline on standard output.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "appliance/Appliance.h"
#include "appliance/Conversation.h"
#include "appliance/Interrupt.h"
#include "appliance/PrivateTmp.h"
#include "appliance/Speech.h"
#include "appliance/Timeline.h"

namespace {

constexpr char kHelp[] =
    "usage: script/run [--say TEXT | --wav FILE | --mic] [--voice NAME]\n"
    "Starts a simulated appliance with the assistant on it and prints what happens.\n"
    "  (nothing)     a short conversation: open, home screen, close, a recipe, a web search\n"
    "  --say TEXT    the wake-up word, then TEXT\n"
    "  --wav FILE    the wake-up word, then the sound of FILE\n"
    "  --mic         your own microphone, until Ctrl-C: say \"hey quorbit\", then a command\n"
    "  --voice NAME  the voice that speaks: slt (default), awb, rms, kal16\n"
    "  --help        this text\n"
    "Ctrl-C ends it, and everything that it started.\n";

struct Options {
    std::string say, wav, voice = "slt";
    bool mic = false;
};

// Ends the program for --help and for what it does not know.
Options read(int count, char** words) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string word = words[i];
        const bool more = i + 1 < count;
        if (word == "--help") {
            fputs(kHelp, stdout);
            exit(0);
        } else if (word == "--mic") {
            options.mic = true;
        } else if (word == "--say" && more) {
            options.say = words[++i];
        } else if (word == "--wav" && more) {
            options.wav = words[++i];
        } else if (word == "--voice" && more) {
            options.voice = words[++i];
        } else {
            fprintf(stderr, "run: unknown or incomplete option %s; see --help\n", word.c_str());
            exit(2);
        }
    }
    return options;
}

// Asked before the environment becomes the appliance's.
std::string personsSoundServer() {
    if (const char* server = getenv("PULSE_SERVER")) {
        return server;
    }
    const char* runtime = getenv("XDG_RUNTIME_DIR");
    return std::string("unix:") + (runtime != nullptr ? runtime : "/run/user/" + std::to_string(getuid())) +
           "/pulse/native";
}

void speakOnce(sim::Appliance& appliance, const Options& options) {
    appliance.wakeUp(options.voice);
    if (options.wav.empty()) {
        appliance.say(options.say, options.voice);
    } else {
        appliance.play(options.wav);
    }
    appliance.awaitState("Ready");
    // What the command starts comes a moment after the answer; nobody knows whether it starts anything.
    for (const double end = sim::monotonicNow() + 2; sim::monotonicNow() < end; usleep(20000)) {
        sim::endIfInterrupted();
        appliance.events().read();
    }
}

void listen(sim::Appliance& appliance) {
    puts("          listening to your microphone; Ctrl-C ends");
    fflush(stdout);
    for (; sim::interrupt() == 0 && appliance.serviceRuns(); usleep(20000)) {
        appliance.events().read();
    }
}

// Of a sound server's address, where it names one: "unix:/path" or "/path".
std::string socketOf(const std::string& server) {
    const std::size_t path = server.rfind("unix:", 0) == 0 ? 5 : 0;
    return server.compare(path, 1, "/") == 0 ? server.substr(path) : "";
}

// What the person names may lie in /tmp, and must be found in the private one.
void enterPrivateTmp(const Options& options, const std::string& soundServer) {
    std::vector<std::string> named;
    for (const std::string& path : {options.wav, socketOf(soundServer)}) {
        if (!path.empty()) {
            named.push_back(path);
        }
    }
    if (!sim::enterPrivateTmp(named)) {
        fputs("run: no private /tmp on this machine; using the shared one\n", stderr);
    }
}

void run(const Options& options, const std::string& soundServer) {
    sim::Appliance appliance(soundServer);
    sim::Timeline timeline(sim::monotonicNow(), isatty(STDOUT_FILENO) != 0);
    appliance.events().watch([&timeline](const sim::Event& event) { timeline.print(event); });
    try {
        appliance.startService();
        appliance.awaitRecognizer();
        if (options.mic) {
            listen(appliance);
        } else if (!options.say.empty() || !options.wav.empty()) {
            speakOnce(appliance, options);
        } else {
            sim::converse(appliance);
        }
        appliance.stopService();
        appliance.events().read();
    } catch (const std::exception&) {
        appliance.events().read();
        appliance.showLastWords();
        throw;
    }
}

}  // namespace

int main(int count, char** words) {
    Options options = read(count, words);
    sim::catchInterrupts();
    try {
        if (!options.wav.empty()) {
            sim::requireSound(options.wav);
            options.wav = std::filesystem::canonical(options.wav);
        }
        const std::string soundServer = options.mic ? personsSoundServer() : "";
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
