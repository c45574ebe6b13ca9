// SPDX-License-Identifier: Apache-2.0
#include "lib/Later.h"

#include <glib.h>

#include <cstdio>
#include <exception>
#include <memory>

namespace sim {

namespace {

using Action = std::function<void()>;

gboolean onDue(gpointer data) noexcept {
    try {
        (*static_cast<Action*>(data))();
    } catch (const std::exception& fault) {
        fprintf(stderr, "%s\n", fault.what());
    }
    return G_SOURCE_REMOVE;
}

void onDone(gpointer data) noexcept {
    const std::unique_ptr<Action> ended(static_cast<Action*>(data));
}

}  // namespace

void later(unsigned milliseconds, std::function<void()> action) {
    auto kept = std::make_unique<Action>(std::move(action));
    g_timeout_add_full(G_PRIORITY_DEFAULT, milliseconds, onDue, kept.release(), onDone);
}

}  // namespace sim
