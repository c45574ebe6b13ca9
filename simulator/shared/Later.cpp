// SPDX-License-Identifier: Apache-2.0
#include "shared/Later.h"

#include <cstdio>
#include <exception>

#include "gio/Context.h"

namespace sim {

void later(unsigned milliseconds, std::function<void()> action) {
    gio::Context::main().postAfter(milliseconds, [action = std::move(action)] {
        try {
            action();
        } catch (const std::exception& fault) {
            fprintf(stderr, "%s\n", fault.what());
        }
    });
}

}  // namespace sim
