#pragma once

#include "platform/direct_sound.h"
#include "platform/openal/al_device.h"
#include "platform/openal/com_object.h"

#include <AL/al.h>

#include <vector>

/// A secondary buffer: its bytes as the client sees them, one AL buffer and one source. One channel goes to
/// OpenAL as two equal ones, because it pans a single one between the loudspeakers at a lower level than a
/// sound recorded on both.
class CAlSoundBuffer final : public CComObject<IDirectSoundBuffer> {
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
    CAlSoundBuffer(std::shared_ptr<CAlDevice> device, const DSBUFFERDESC& description);
    ~CAlSoundBuffer() override;

    HRESULT makeSource();
    bool isPlaying() const;

    std::shared_ptr<CAlDevice> m_pDevice;
    WAVEFORMATEX m_format;
    DWORD m_nFlags;
    std::vector<BYTE> m_bytes;
    ALuint m_nBuffer = 0;
    ALuint m_nSource = 0;
};
