// SPDX-License-Identifier: Apache-2.0
#include "CaptureSource.h"

#include <cstdlib>

#include "PulseSource.h"
#include "ReplaySource.h"

namespace audio {

namespace {

bool named(const char* variable) {
    const char* value = std::getenv(variable);
    return value && *value;
}

template <typename Source>
std::unique_ptr<CaptureSource> open(const Format& format) {
    return std::make_unique<Source>(format);
}

struct Entry {
    bool (*chosen)();
    std::unique_ptr<CaptureSource> (*open)(const Format&);
};

// The first entry that the environment selects is used.
const Entry kSources[] = {
    {[] { return named("ORVANE_AUDIO_REPLAY"); }, open<ReplaySource>},
    {[] { return true; }, open<PulseSource>},
};

}  // namespace

std::unique_ptr<CaptureSource> openCaptureSource(const Format& format) {
    const Entry* entry = kSources;
    while (!entry->chosen()) {
        ++entry;
    }
    return entry->open(format);
}

}  // namespace audio
