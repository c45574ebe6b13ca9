// SPDX-License-Identifier: Apache-2.0
// A private message bus, so that the tests never use the developer's session bus.
#pragma once

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>
#include <string>

class PrivateBus {
public:
    // `configuration` is an option of dbus-daemon.
    explicit PrivateBus(std::string configuration = "--session") {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0) {
            throw std::runtime_error("cannot create a pipe");
        }
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], 3);
        // The daemon ends with this process, even if this process is killed.
        std::string words[] = {"setpriv",  "--pdeathsig",      "TERM", "dbus-daemon", configuration,
                               "--nofork", "--print-address=3"};
        char* arguments[] = {words[0].data(), words[1].data(), words[2].data(), words[3].data(),
                             words[4].data(), words[5].data(), words[6].data(), nullptr};
        // Ecore's main loop blocks signals, and the daemon would inherit the signal mask.
        sigset_t none;
        sigemptyset(&none);
        posix_spawnattr_t attributes;
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setsigmask(&attributes, &none);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
        const int code = posix_spawnp(&mProcess, arguments[0], &actions, &attributes, arguments, environ);
        posix_spawnattr_destroy(&attributes);
        posix_spawn_file_actions_destroy(&actions);
        ::close(ends[1]);
        if (code != 0) {
            throw std::runtime_error("cannot start dbus-daemon");
        }
        readAddress(ends[0]);
        ::close(ends[0]);
        setenv("DBUS_SESSION_BUS_ADDRESS", mAddress.c_str(), 1);
    }
    ~PrivateBus() {
        // GLib sends this process SIGTERM when its shared connection closes.
        signal(SIGTERM, [](int) {});
        kill(mProcess, SIGTERM);
        waitpid(mProcess, nullptr, 0);
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    const std::string& address() const { return mAddress; }

private:
    void readAddress(int from) {
        for (char letter = 0; read(from, &letter, 1) == 1 && letter != '\n';) {
            mAddress += letter;
        }
        if (mAddress.empty()) {
            throw std::runtime_error("dbus-daemon prints no address");
        }
    }

    pid_t mProcess = 0;
    std::string mAddress;
};

// The address of this test program's bus, which starts on first use, with the configuration given then.
inline const std::string& privateBusAddress(const std::string& configuration = "--session") {
    static const PrivateBus bus(configuration);
    return bus.address();
}
