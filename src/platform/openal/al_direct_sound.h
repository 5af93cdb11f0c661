#pragma once

#include "platform/direct_sound.h"
#include "platform/openal/al_device.h"
#include "platform/openal/com_object.h"

/// The sound device over OpenAL. Its buffers outlive it where somebody still holds them.
class CAlDirectSound final : public CComObject<IDirectSound> {
public:
    explicit CAlDirectSound(std::shared_ptr<CAlDevice> device) : m_pDevice(std::move(device)) {}

    HRESULT QueryInterface(REFIID interfaceId, void** object) override;
    HRESULT CreateSoundBuffer(const DSBUFFERDESC* description, IDirectSoundBuffer** buffer,
                              IUnknown* outer) override;
    HRESULT SetCooperativeLevel(HWND window, DWORD level) override;
    HRESULT Initialize(const GUID* device) override;

private:
    std::shared_ptr<CAlDevice> m_pDevice;
    bool m_bHasLevel = false;
};
