// SPDX-License-Identifier: Apache-2.0
// orvane-sim-hub HOUSEHOLD [--port N] [--certificate PEM --key PEM]: prints "port N" when it listens and ends with
// SIGTERM or SIGINT. Writes the record "hub".
#include <signal.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "hub-server/Server.h"

namespace {

struct Options {
    std::string household;
    int port = 0;
    std::string certificate;
    std::string key;
};

bool parse(int count, char** arguments, Options& options) {
    for (int i = 1; i < count; ++i) {
        const std::string name = arguments[i];
        if (name.rfind("--", 0) != 0) {
            options.household = name;
        } else if (i + 1 == count) {
            return false;
        } else if (name == "--port") {
            options.port = atoi(arguments[++i]);
        } else if (name == "--certificate") {
            options.certificate = arguments[++i];
        } else if (name == "--key") {
            options.key = arguments[++i];
        } else {
            return false;
        }
    }
    return !options.household.empty() && options.certificate.empty() == options.key.empty();
}

// Before any thread exists, so that only sigwait() receives them.
sigset_t blockEndings() {
    sigset_t endings;
    sigemptyset(&endings);
    sigaddset(&endings, SIGTERM);
    sigaddset(&endings, SIGINT);
    pthread_sigmask(SIG_BLOCK, &endings, nullptr);
    return endings;
}

void serve(const Options& options, const sigset_t& endings) {
    std::unique_ptr<openssl::Identity> identity;
    if (!options.certificate.empty()) {
        identity = std::make_unique<openssl::Identity>(options.certificate, options.key);
    }
    sim::hub::Hub hub(options.household);
    const sim::hub::Server server(hub, options.port, identity.get());
    hub.record().write("listening", {{"port", server.port()}});
    printf("port %d\n", server.port());
    fflush(stdout);
    int signal = 0;
    sigwait(&endings, &signal);
}

}  // namespace

int main(int count, char** arguments) {
    Options options;
    if (!parse(count, arguments, options)) {
        fprintf(stderr, "usage: orvane-sim-hub HOUSEHOLD [--port N] [--certificate PEM --key PEM]\n");
        return 2;
    }
    const sigset_t endings = blockEndings();
    try {
        serve(options, endings);
        return 0;
    } catch (const std::exception& fault) {
        fprintf(stderr, "orvane-sim-hub: %s\n", fault.what());
        return 1;
    }
}
