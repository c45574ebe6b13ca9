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

    // The engine calls these. All return 0.
    int Start() override;
    int Stop() override;
    int HasData(bool& available) override;
    // Waits for a block while the feed is open. If it is closed, returns null and 0 immediately. The engine owns the
    // block until it returns it.
    int FetchData(void*& data, unsigned int& size) override;
    int ReturnData(void* data) override;

    // Frees all queued blocks.
    void clearQueue();

protected:
    void implDataHandled(char* data, int size) override;

private:
    // A block (new[]) and its length in bytes. The destructor does not free the block, because the engine may own it.
    struct PCMData {
        PCMData(char* block, unsigned int length) : data(block), size(length) {}
        virtual ~PCMData() = default;

        char* data;
        unsigned int size;
    };

    // Call with the mutex held. Returns the contents of the oldest record and keeps the record for reuse.
    PCMData takeOldest();

    std::list<PCMData> mQueue;  // oldest first
    std::mutex mQueueMutex;
    std::list<PCMData> mSpare;  // empty records for reuse, to save allocations
};

}  // namespace OrvaneDA
