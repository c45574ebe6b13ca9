// SPDX-License-Identifier: Apache-2.0
// The feed: the recorder's read thread queues blocks, and the wake engine's thread takes them. The listener's enabled
// flag opens and closes the feed for both threads.
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

    // Called by the engine. All return 0.
    int Start() override;
    int Stop() override;
    int HasData(bool& available) override;
    // Waits for a block while the feed is open. Gives null and 0 at once when it is closed. The engine owns the block
    // until it returns it.
    int FetchData(void*& data, unsigned int& size) override;
    int ReturnData(void* data) override;

    // Frees every queued block.
    void clearQueue();

protected:
    void implDataHandled(char* data, int size) override;

private:
    // A block (new[]) and its length in bytes. The destructor does not free the block, which the engine may own by
    // then.
    struct PCMData {
        PCMData(char* block, unsigned int length) : data(block), size(length) {}
        virtual ~PCMData() = default;

        char* data;
        unsigned int size;
    };

    // With the mutex held: moves the oldest record to the spare ones and returns what it held.
    PCMData takeOldest();

    std::list<PCMData> mQueue;  // oldest first
    std::mutex mQueueMutex;
    std::list<PCMData> mSpare;  // records without a block, for reuse: queueing a block allocates no record
};

}  // namespace OrvaneDA
