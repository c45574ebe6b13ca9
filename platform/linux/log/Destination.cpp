// SPDX-License-Identifier: Apache-2.0
#include "Destination.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>

namespace logging {

namespace {

int descriptorOf(Destination destination) noexcept {
    return destination == Destination::STANDARD_OUTPUT ? STDOUT_FILENO : STDERR_FILENO;
}

// How many of the bytes count as written after a system call with this result.
std::size_t written(ssize_t result, std::size_t bytes) noexcept {
    if (result >= 0) {
        return static_cast<std::size_t>(result);
    }
    return errno == EAGAIN || errno == EINTR ? 0 : bytes;
}

std::size_t sendToJournal(std::string_view bytes) noexcept {
    static int socketToJournal = -1;  // under the mutex of the only queue to the journal
    if (socketToJournal < 0) {
        socketToJournal = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    }
    if (socketToJournal < 0) {
        return 0;  // for example, too many open files; the message waits
    }
    static const sockaddr_un journal{AF_UNIX, "/run/systemd/journal/socket"};
    return written(sendto(socketToJournal, bytes.data(), bytes.size(), MSG_DONTWAIT | MSG_NOSIGNAL,
                          reinterpret_cast<const sockaddr*>(&journal), sizeof journal),
                   bytes.size());
}

// Other processes share the open file, so it must stay blocking. Instead, this opens the same pipe or terminal again,
// without blocking, and closes it right after the write, so that a reader notices when all writers are gone.
std::size_t writeToPipe(int descriptor, std::string_view bytes) noexcept {
    const char* name = descriptor == STDOUT_FILENO ? "/proc/self/fd/1" : "/proc/self/fd/2";
    const int own = open(name, O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (own < 0) {  // for example, too many open files
        pollfd writable{descriptor, POLLOUT, 0};
        return poll(&writable, 1, 0) == 0 ? 0 : written(write(descriptor, bytes.data(), bytes.size()), bytes.size());
    }
    const std::size_t size = written(write(own, bytes.data(), bytes.size()), bytes.size());
    close(own);
    return size;
}

std::size_t writeTo(int descriptor, std::string_view bytes) noexcept {
    struct stat status {};
    if (fstat(descriptor, &status) != 0) {
        return bytes.size();
    }
    if (S_ISSOCK(status.st_mode)) {
        return written(send(descriptor, bytes.data(), bytes.size(), MSG_DONTWAIT | MSG_NOSIGNAL), bytes.size());
    }
    if (S_ISFIFO(status.st_mode) || (S_ISCHR(status.st_mode) && isatty(descriptor) != 0)) {
        return writeToPipe(descriptor, bytes);
    }
    return written(write(descriptor, bytes.data(), bytes.size()), bytes.size());
}

}  // namespace

bool mayBlock(Destination destination) noexcept {
    struct stat status {};
    return destination == Destination::JOURNAL ||
           (fstat(descriptorOf(destination), &status) == 0 && !S_ISREG(status.st_mode));
}

std::size_t writeNow(Destination destination, std::string_view bytes) noexcept {
    return destination == Destination::JOURNAL ? sendToJournal(bytes) : writeTo(descriptorOf(destination), bytes);
}

}  // namespace logging
