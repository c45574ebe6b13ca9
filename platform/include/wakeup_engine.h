// SPDX-License-Identifier: Apache-2.0
// Wake engine, interface 4.10. The engine has its own thread, which fetches audio and calls the listener.
#pragma once

#include <string>

namespace nuance {

// Source of 16-bit PCM at 16 kHz. Called on the engine's thread. Every function returns 0 on success.
class IWakeupAudioIn {
public:
    virtual ~IWakeupAudioIn() = default;
    // Called at the beginning and the end of each listening period.
    virtual int Start() = 0;
    virtual int Stop() = 0;
    virtual int HasData(bool& available) = 0;
    // May block for audio. Sets data to null and size to 0 if there is no more audio. The size is in bytes. The engine
    // returns each block with ReturnData.
    virtual int FetchData(void*& data, unsigned int& size) = 0;
    virtual int ReturnData(void* data) = 0;
};

// Called on the engine's thread, except for errors and warnings of Initialize, StartListening, and CancelListening,
// which come on the caller's thread before the call returns.
class IWakeupListener {
public:
    enum Error : int {
        NOT_ENOUGH_RESOURCE = 0,
        NOT_IN_PROPER_STATE = 1,
        INVALID_ARGUMENT = 2,
        WRONG_VOCON_DATA = 3,
        ERROR_FROM_USER_CALLBACK = 4,
        NOT_SUPPORTED = 5,
        VOCON_INTERNAL_ERROR = 6,
        COULD_NOT_FIND_ACMOD = 7,
        COULD_NOT_FIND_CLC = 8,
        ERROR_FROM_CONFIG_PARSER = 9,
    };
    enum Warning : int {
        NOT_INITIALIZED = 0,
        ALREADY_LISTENING = 1,
        FAIL_TO_CREATE_DIRECTORY = 2,
        AUDIOIN_NOT_ATTACHED = 3,
        WAKEUP_WORD_NOT_SET = 4,
        FILE_OPEN_FAILED = 5,
        INVALID_CONFIG_KEY = 6,
        INVALID_CONFIG_VALUE = 7,
    };
    virtual ~IWakeupListener() = default;
    // level: confidence, 0 to 100. The listening period has already ended.
    virtual void OnWakeup(const std::string& word, int level) = 0;
    virtual void OnCanceled() = 0;
    virtual void OnError(Error code, const std::string& detail) = 0;
    virtual void OnWarning(Warning code, const std::string& detail) = 0;
};

class IWakeupCtx {
public:
    static IWakeupCtx* Create();
    // Ends the listening period and waits for the engine's thread, which makes no calls afterward. Must not be called
    // on the engine's thread.
    static void Destroy(IWakeupCtx* ctx);

    // Any thread. The caller keeps ownership of the listener and the audio input, which must outlive the context or be
    // detached.
    virtual bool Initialize(const std::string& configDirectory, const std::string& configFile) = 0;
    virtual void AttachListener(IWakeupListener* listener) = 0;
    // Replacing or removing the input ends a listening period with the old input. This waits until a call in progress
    // to the old input returns, so close the feed first, and do not call this on the engine's thread. After it returns,
    // the engine no longer calls the old input.
    virtual void AttachAudioIn(IWakeupAudioIn* audioIn) = 0;
    virtual bool IsListening() = 0;
    // Waits for the listener's call at the end of the previous listening period, unless that call starts the new one.
    virtual void StartListening() = 0;
    // Returns without waiting for the engine's thread.
    virtual void CancelListening() = 0;

protected:
    virtual ~IWakeupCtx() = default;
};

}  // namespace nuance
