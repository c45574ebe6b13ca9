// SPDX-License-Identifier: Apache-2.0
#include "Controller/Trigger/vocon_4_10/WakeupAudioIn.h"

#include <unistd.h>

#include <utility>

namespace OrvaneDA {

namespace {

constexpr size_t MAX_WAITING = 500;  // if the queue is longer than this, a new block replaces the oldest
constexpr useconds_t FETCH_PAUSE_US = 1000;

}  // namespace

WakeupAudioIn::WakeupAudioIn() : SRecordListener(0) {}

WakeupAudioIn::~WakeupAudioIn() {
    clearQueue();
}

int WakeupAudioIn::Start() {
    return 0;
}

int WakeupAudioIn::Stop() {
    return 0;
}

int WakeupAudioIn::HasData(bool& available) {
    std::lock_guard<std::mutex> lock(mQueueMutex);
    available = !mQueue.empty();
    return 0;
}

int WakeupAudioIn::FetchData(void*& data, unsigned int& size) {
    data = nullptr;
    size = 0;
    while (mEnabled) {
        {
            std::lock_guard<std::mutex> lock(mQueueMutex);
            if (!mQueue.empty()) {
                const PCMData oldest = takeOldest();
                if (oldest.data != nullptr) {
                    data = oldest.data;
                    size = oldest.size;
                }
                return 0;
            }
        }
        usleep(FETCH_PAUSE_US);
    }
    return 0;
}

int WakeupAudioIn::ReturnData(void* data) {
    delete[] static_cast<char*>(data);
    return 0;
}

void WakeupAudioIn::implDataHandled(char* data, int size) {
    std::lock_guard<std::mutex> lock(mQueueMutex);
    if (mQueue.size() > MAX_WAITING) {
        delete[] takeOldest().data;
    }
    if (mSpare.empty()) {
        mQueue.emplace_back(data, size);
        return;
    }
    mSpare.front().data = data;
    mSpare.front().size = size;
    mQueue.splice(mQueue.end(), mSpare, mSpare.begin());
}

WakeupAudioIn::PCMData WakeupAudioIn::takeOldest() {
    const PCMData oldest = std::exchange(mQueue.front(), PCMData(nullptr, 0));
    mSpare.splice(mSpare.begin(), mQueue, mQueue.begin());
    return oldest;
}

void WakeupAudioIn::clearQueue() {
    std::lock_guard<std::mutex> lock(mQueueMutex);
    for (PCMData& record : mQueue) {
        delete[] record.data;
    }
    mQueue.clear();
    mSpare.clear();
}

}  // namespace OrvaneDA
