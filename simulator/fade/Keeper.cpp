// SPDX-License-Identifier: Apache-2.0
#include "Keeper.h"

#include <fcntl.h>
#include <sound_manager.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

namespace {

// Waits until the process ends, and returns the last level that it sent.
int lastOf(int connection, int level) {
    for (int next = level; read(connection, &next, sizeof next) == sizeof next;) {
        level = next;
    }
    return level;
}

// Only raises the volume. If somebody has already raised it above the level, it stays there.
void restore(int level) {
    int now = 0;
    if (sound_manager_get_volume(SOUND_TYPE_MEDIA, &now) == SOUND_MANAGER_ERROR_NONE && now < level) {
        sound_manager_set_volume(SOUND_TYPE_MEDIA, level);
    }
}

}  // namespace

int startKeeper() {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) {
        throw std::runtime_error("cannot create a connection to the volume keeper");
    }
    const pid_t child = fork();
    if (child < 0) {
        throw std::runtime_error("cannot start the volume keeper");
    }
    if (child != 0) {
        close(ends[0]);
        return ends[1];
    }
    // The keeper must survive a signal to the process group, and must not keep the process's input and output open.
    setsid();
    close(ends[1]);
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        dup2(nowhere, stream);
    }
    const int level = lastOf(ends[0], kNoLevel);
    if (level != kNoLevel) {
        restore(level);
    }
    std::exit(EXIT_SUCCESS);
}
