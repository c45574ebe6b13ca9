// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <mutex>

#include "Controller/SRecorder.h"

namespace OrvaneDA {

// The device states and the capture loop that all back ends share. A back end implements the calls to its device.
class SRecorderBackEnd : public SRecorder {
public:
    int _audio_init() override;
    int _audio_prepare() override;
    void _audio_record(const StopFlag& stop) override;
    int _audio_unprepare() override;
    int _audio_deinit() override;

protected:
    // The parts of the log lines that differ between back ends.
    struct LogTexts {
        const char* init;  // logged on entry to _audio_init, and so on
        const char* prepare;
        const char* unprepare;
        const char* deinit;
        const char* readFailed;
        const char* destroyFailed;  // null: failures are not logged
    };
    struct Read {
        int error;  // 0: success; `bytes` may still be 0
        int bytes;
    };

    // The texts must be string literals.
    explicit SRecorderBackEnd(const LogTexts& texts) : mTexts(texts) {}
    // Stops capture and releases the focus and the device. Called by the back end's destructor, while its overrides
    // still exist.
    void shutDown();

    static constexpr int BUFFER_SIZE = 1024;  // bytes

private:
    // Device calls, never concurrent. They return 0 or the platform's code, except createDevice, which returns whether
    // the device can be prepared and stores the code in `result`.
    virtual bool createDevice(int& result) = 0;
    virtual int bindStream() = 0;
    virtual int startDevice() = 0;
    // Blocks until samples arrive; reads at most BUFFER_SIZE bytes. Called without the device mutex, because stopDevice
    // may end the read.
    virtual Read readDevice(char* buffer) = 0;
    virtual int stopDevice() = 0;
    virtual int destroyDevice() = 0;

    std::unique_lock<std::mutex> takeTurn();
    void resetDevice();

    const LogTexts mTexts;
    std::mutex mDeviceMutex;  // the read thread may reset the device while the focus changes
    std::mutex mReadMutex;    // two starts in quick succession create two read threads, which take turns
};

}  // namespace OrvaneDA
