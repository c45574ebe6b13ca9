// SPDX-License-Identifier: Apache-2.0
#include "Controller/SRecorderOriginal.h"

#include "Util/Log.h"

namespace OrvaneDA {

SRecorderOriginal::SRecorderOriginal()
    : SRecorderBackEnd({"audio_in_create", "audio_in_prepare", "audio_unprepare", "audio_in_destroy", "audio_read fail",
                        "[Recorder ERROR] Fail to destroy audio handle"}) {
    LOGI("");
    _audio_init();
    _audio_prepare();
}

SRecorderOriginal::~SRecorderOriginal() {
    LOGI("");
    shutDown();
}

bool SRecorderOriginal::createDevice(int& result) {
    result = audio_in_create(mSampleRate, mChannel, mSampleType, &mInput);
    return result == AUDIO_IO_ERROR_NONE;
}

int SRecorderOriginal::bindStream() {
    return audio_in_set_sound_stream_info(mInput, mStreamInfo);
}

int SRecorderOriginal::startDevice() {
    return audio_in_prepare(mInput);
}

SRecorderBackEnd::Read SRecorderOriginal::readDevice(char* buffer) {
    const int result = audio_in_read(mInput, buffer, BUFFER_SIZE);
    return result < 0 ? Read{result, 0} : Read{0, result};
}

int SRecorderOriginal::stopDevice() {
    return audio_in_unprepare(mInput);
}

int SRecorderOriginal::destroyDevice() {
    return audio_in_destroy(mInput);
}

}  // namespace OrvaneDA
