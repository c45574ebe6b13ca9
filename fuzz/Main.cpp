// One fuzzer: FUZZ_ENTRY is its entry.
#include <dlog.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include "Entries.h"

// The log takes a million lines a minute here: they are made and dropped.
int dlog_print(log_priority, const char*, const char* format, ...) {
    char line[1024];
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);
    return length;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::FUZZ_ENTRY({reinterpret_cast<const char*>(data), size});
    return 0;
}
