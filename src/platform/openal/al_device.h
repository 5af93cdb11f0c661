#pragma once

#include <AL/alc.h>

#include <memory>

/// An open device with its context. Shared by the sound device and every buffer made on it, closed with the
/// last of them.
class CAlDevice {
public:
    /// Opens a device as the current opener says; null when there is none.
    static std::shared_ptr<CAlDevice> open();
    ~CAlDevice();
    CAlDevice(const CAlDevice&) = delete;
    CAlDevice& operator=(const CAlDevice&) = delete;

    /// False once the device has vanished.
    bool isConnected() const;

    /// Makes the context the calling thread's current one while it lives, then gives back the thread's own:
    /// a host may play through OpenAL too.
    class CCurrent {
    public:
        explicit CCurrent(const CAlDevice& device);
        ~CCurrent();
        CCurrent(const CCurrent&) = delete;
        CCurrent& operator=(const CCurrent&) = delete;

    private:
        ALCcontext* m_pPrevious;
    };

private:
    CAlDevice(ALCdevice* device, ALCcontext* context) : m_pDevice(device), m_pContext(context) {}

    ALCdevice* m_pDevice;
    ALCcontext* m_pContext;
};
