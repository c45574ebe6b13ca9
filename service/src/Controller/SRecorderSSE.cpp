// SPDX-License-Identifier: Apache-2.0
#include "Controller/SRecorderSSE.h"

#include <speech_capture.h>

#include "Util/Log.h"

namespace OrvaneDA {

namespace {

constexpr int FRAMES = 256;             // per read
constexpr int BLOCK_SIZE = FRAMES * 2;  // bytes: the library mixes its two channels to one

}  // namespace

SRecorderSSE::SRecorderSSE() : SRecorderBackEnd({"", "", "", "", "sse_read fail", nullptr}) {
    LOGI("");
    _audio_init();
    _audio_prepare();
}

SRecorderSSE::~SRecorderSSE() {
    LOGI("");
    shutDown();
}

// Treats the library as created even if a call fails.
bool SRecorderSSE::createDevice(int& result) {
    const int created = sse_create(16000, AUDIO_CHANNEL_STEREO, AUDIO_SAMPLE_TYPE_S16_LE, FRAMES);
    const int initialized = sse_init();
    result = created != 0 ? created : initialized;
    return true;
}

int SRecorderSSE::bindStream() {
    return sse_set_stream_info(mStreamInfo);
}

int SRecorderSSE::startDevice() {
    return sse_prepare();
}

SRecorderBackEnd::Read SRecorderSSE::readDevice(char* buffer) {
    const int result = sse_read(buffer, FRAMES);
    return {result, result == 0 ? BLOCK_SIZE : 0};
}

int SRecorderSSE::stopDevice() {
    return sse_unprepare();
}

int SRecorderSSE::destroyDevice() {
    const int deinitialized = sse_deinit();
    const int destroyed = sse_destroy();
    return deinitialized != 0 ? deinitialized : destroyed;
}

void SRecorderSSE::debugTriggerShot(int level) {
    sse_trigger_wakeup_word_recording(level);
}

}  // namespace OrvaneDA
