// SPDX-License-Identifier: Apache-2.0
// Checks for a port, sends a message to it, and prints both codes.
#include <cstdio>
#include <memory>

#include "message_port.h"

namespace {

struct Free {
    void operator()(bundle* message) const noexcept { bundle_free(message); }
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        return 1;
    }
    bool exists = false;
    const int looked = message_port_check_trusted_remote_port(argv[1], argv[2], &exists);
    const std::unique_ptr<bundle, Free> message(bundle_create());
    const int sent = message_port_send_trusted_message(argv[1], argv[2], message.get());
    printf("%d %d\n", looked, sent);
    return 0;
}
