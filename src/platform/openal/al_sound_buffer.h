#pragma once

#include "platform/openal/al_buffer.h"

#include <AL/al.h>

#include <vector>

/// A secondary buffer: one AL buffer, which keeps the samples, and one source. A block of its own exists only
/// from Lock to Unlock. One channel goes to OpenAL as two equal ones, because it pans a single one between
/// the loudspeakers at a lower level than a sound recorded on both.
class CAlSoundBuffer final : public CAlBuffer {
public:
    static HRESULT create(std::shared_ptr<CAlDevice> device, const DSBUFFERDESC& description,
                          IDirectSoundBuffer** buffer);

    HRESULT QueryInterface(REFIID interfaceId, void** object) override;
    HRESULT Lock(DWORD offset, DWORD bytes, void** part1, DWORD* size1, void** part2, DWORD* size2,
                 DWORD flags) override;
    HRESULT Unlock(void* part1, DWORD size1, void* part2, DWORD size2) override;
    HRESULT Play(DWORD reserved1, DWORD reserved2, DWORD flags) override;
    HRESULT SetCurrentPosition(DWORD position) override;
    HRESULT Stop() override;

private:
    CAlSoundBuffer(std::shared_ptr<CAlDevice> device, const DSBUFFERDESC& description);
    ~CAlSoundBuffer() override;

    HRESULT makeSource();
    HRESULT passToSource(std::vector<BYTE> bytes);
    bool isPlaying() const override;
    void applyGain(float gain) override;

    WAVEFORMATEX m_format;
    std::vector<BYTE> m_locked;
    ALuint m_nBuffer = 0;
    ALuint m_nSource = 0;
};
