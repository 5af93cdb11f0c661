#pragma once

#include "platform/direct_sound.h"
#include "platform/openal/al_device.h"
#include "platform/openal/com_object.h"

/// The primary buffer stands for the mixed output: it has no samples of its own and leads to the listener.
class CAlPrimaryBuffer final : public CComObject<IDirectSoundBuffer> {
public:
    static HRESULT create(std::shared_ptr<CAlDevice> device, const DSBUFFERDESC& description,
                          IDirectSoundBuffer** buffer);

    HRESULT QueryInterface(REFIID interfaceId, void** object) override;
    HRESULT GetCaps(DSBCAPS* caps) override;
    HRESULT GetStatus(DWORD* status) override;
    HRESULT Lock(DWORD offset, DWORD bytes, void** part1, DWORD* size1, void** part2, DWORD* size2,
                 DWORD flags) override;
    HRESULT Unlock(void* part1, DWORD size1, void* part2, DWORD size2) override;
    HRESULT Play(DWORD reserved1, DWORD reserved2, DWORD flags) override;
    HRESULT SetCurrentPosition(DWORD position) override;
    HRESULT SetVolume(LONG volume) override;
    HRESULT Stop() override;

private:
    CAlPrimaryBuffer(std::shared_ptr<CAlDevice> device, DWORD flags)
        : m_pDevice(std::move(device)), m_nFlags(flags) {}

    std::shared_ptr<CAlDevice> m_pDevice;
    DWORD m_nFlags;
};
