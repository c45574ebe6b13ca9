// Wake-up engine, interface 4.10. The engine runs a thread of its own that pulls audio and calls the listener.
#pragma once

#include <string>

namespace nuance {

// Source of 16-bit PCM at 16 kHz, called by the engine's thread. Every function returns 0 on success.
class IWakeupAudioIn {
public:
    virtual ~IWakeupAudioIn() = default;
    // Around each period of listening.
    virtual int Start() = 0;
    virtual int Stop() = 0;
    virtual int HasData(bool& available) = 0;
    // May block for audio; null and 0 when there is none to come. A block (size in bytes) goes back by ReturnData.
    virtual int FetchData(void*& data, unsigned int& size) = 0;
    virtual int ReturnData(void* data) = 0;
};

// Told of everything on the engine's thread, except for faults of Initialize, StartListening and CancelListening,
// which are told on the caller's thread before the call returns.
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
    // level: confidence, 0 to 100. Listening has ended when this comes.
    virtual void OnWakeup(const std::string& word, int level) = 0;
    virtual void OnCanceled() = 0;
    virtual void OnError(Error code, const std::string& detail) = 0;
    virtual void OnWarning(Warning code, const std::string& detail) = 0;
};

class IWakeupCtx {
public:
    static IWakeupCtx* Create();
    // Ends listening and waits for the engine's thread; no call comes after it. Not from the engine's thread.
    static void Destroy(IWakeupCtx* ctx);

    // Any thread. The listener and the audio input stay the caller's and must outlive the context or be detached.
    virtual bool Initialize(const std::string& configDirectory, const std::string& configFile) = 0;
    virtual void AttachListener(IWakeupListener* listener) = 0;
    // Another input, or none, ends a period of listening to the one before. When it returns the engine calls the one
    // before no more, so it waits for a call in progress: the feed must be closed first, and not from the engine's thread.
    virtual void AttachAudioIn(IWakeupAudioIn* audioIn) = 0;
    virtual bool IsListening() = 0;
    // Waits while the listener is told of the end of the period before, unless it is the listener that starts.
    virtual void StartListening() = 0;
    // Returns without waiting for the engine's thread.
    virtual void CancelListening() = 0;

protected:
    virtual ~IWakeupCtx() = default;
};

}  // namespace nuance
