#pragma once

#include "platform/direct_sound.h"
#include "platform/openal/al_device.h"
#include "platform/openal/com_object.h"

/// What the primary buffer and the sounds share: the device they keep open, and what they were made with.
class CAlBuffer : public CComObject<IDirectSoundBuffer> {
public:
    HRESULT GetCaps(DSBCAPS* caps) final;
    HRESULT GetStatus(DWORD* status) final;
    HRESULT SetVolume(LONG volume) final;

protected:
    CAlBuffer(std::shared_ptr<CAlDevice> device, const DSBUFFERDESC& description);

    virtual bool isPlaying() const = 0;
    /// Puts the factor on what is heard of this buffer. The device's context is current.
    virtual void applyGain(float gain) = 0;

    const CAlDevice& device() const { return *m_pDevice; }
    const std::shared_ptr<CAlDevice>& sharedDevice() const { return m_pDevice; }
    DWORD flags() const { return m_nFlags; }
    DWORD size() const { return m_nSize; } ///< in bytes

private:
    std::shared_ptr<CAlDevice> m_pDevice;
    DWORD m_nFlags;
    DWORD m_nSize;
};
