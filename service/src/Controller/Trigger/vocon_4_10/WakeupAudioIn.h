// SPDX-License-Identifier: Apache-2.0
// Carries microphone audio to the wake-up engine: the recorder's read thread queues blocks, the engine's thread takes
// them. The listener's enabled flag opens and closes the feed for both.
#pragma once

#include <wakeup_engine.h>

#include <list>
#include <memory>
#include <mutex>

#include "Controller/SRecordListener.h"

namespace OrvaneDA {

class WakeupAudioIn : public nuance::IWakeupAudioIn, public SRecordListener {
public:
    WakeupAudioIn();
    ~WakeupAudioIn() override;

    // The engine's side; all return 0.
    int Start() override;
    int Stop() override;
    int HasData(bool& available) override;
    // Waits for a block while the feed is open; null and 0 at once when it is closed.
    int FetchData(void*& data, unsigned int& size) override;
    int ReturnData(void* data) override;

    // Frees every queued block.
    void clearQueue();

protected:
    void implDataHandled(char* data, int size) override;

private:
    // One recorder block (new[], freed by whoever it ends with) and its length in bytes.
    struct PCMData {
        PCMData(char* block, unsigned int length) : data(block), size(length) {}
        virtual ~PCMData() = default;

        char* data;
        unsigned int size;
    };

    std::list<PCMData> mQueue;  // oldest first
    std::mutex mQueueMutex;
    std::list<PCMData> mSpare;  // emptied records, kept so that a block costs no allocation but its own
};

}  // namespace OrvaneDA
