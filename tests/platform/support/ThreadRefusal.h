// SPDX-License-Identifier: Apache-2.0
#pragma once

// While it exists, no thread can start, as if the system had none left. The test program defines pthread_create.
class ThreadRefusal {
public:
    ThreadRefusal();
    ~ThreadRefusal();
    ThreadRefusal(const ThreadRefusal&) = delete;
    ThreadRefusal& operator=(const ThreadRefusal&) = delete;
};
