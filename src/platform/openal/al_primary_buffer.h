#pragma once

#include "platform/openal/al_buffer.h"

/// The primary buffer stands for the mixed output: it has no samples of its own and leads to the listener.
class CAlPrimaryBuffer final : public CAlBuffer {
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
    using CAlBuffer::CAlBuffer;

    bool isPlaying() const override;
    void applyGain(float gain) override;
};
