// SPDX-License-Identifier: Apache-2.0
#include "ThreadRefusal.h"

#include <dlfcn.h>
#include <errno.h>
#include <pthread.h>

#include <atomic>

namespace {

std::atomic<bool> refuses = false;

using Create = int (*)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);

}  // namespace

ThreadRefusal::ThreadRefusal() {
    refuses = true;
}

ThreadRefusal::~ThreadRefusal() {
    refuses = false;
}

// Also takes the calls of the shared libraries.
extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*run)(void*),
                              void* argument) noexcept {
    static const auto create = reinterpret_cast<Create>(dlsym(RTLD_NEXT, "pthread_create"));
    return refuses ? EAGAIN : create(thread, attributes, run, argument);
}
