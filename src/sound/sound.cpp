#include "sound/sound.h"

#include "engine/qx_file.h"
#include "sound/wave_samples.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <new>

namespace {

/// Hundredths of a decibel. Values that no LONG holds are held to its ends, which the device refuses too.
LONG toDeviceVolume(float volume) {
    const float hundredths = volume * 10000.0F - 10000.0F;
    if (!(std::abs(hundredths) < 1.0e9F)) {
        return std::numeric_limits<LONG>::max();
    }
    return static_cast<LONG>(hundredths);
}

} // namespace

CSound::CSound(qxCFile& file, DWORD flags, IDirectSound& device, DWORD highestRate)
    : m_name(file.getFilename()) {
    m_desc.dwSize = sizeof m_desc;
    m_desc.dwFlags = flags != 0 ? flags : DEFAULT_SOUND_FLAGS;
    const int length = file.getLength();
    if (length <= 0) {
        return;
    }
    // Not cleared first: the file fills it, and what it did not fill is not looked at.
    const std::unique_ptr<BYTE[]> block(new (std::nothrow) BYTE[static_cast<std::size_t>(length)]);
    if (!block) {
        return;
    }
    const int filled = std::clamp(file.read(block.get(), length, false), 0, length);
    createBuffer({block.get(), static_cast<std::size_t>(filled)}, device, highestRate);
}

CSound::~CSound() {
    if (m_pBuffer != nullptr) {
        m_pBuffer->Release();
    }
}

void CSound::createBuffer(std::span<BYTE> image, IDirectSound& device, DWORD highestRate) {
    auto wave = findWaveSamples(image, highestRate);
    if (!wave) {
        return;
    }
    m_desc.dwBufferBytes = static_cast<DWORD>(wave->bytes.size());
    m_desc.lpwfxFormat = &wave->format.block();
    const HRESULT created = device.CreateSoundBuffer(&m_desc, &m_pBuffer, nullptr);
    m_desc.lpwfxFormat = nullptr;
    if (FAILED(created)) {
        m_pBuffer = nullptr;
    } else if (!fillBuffer(wave->bytes)) {
        m_pBuffer->Release();
        m_pBuffer = nullptr;
    }
}

bool CSound::fillBuffer(std::span<const BYTE> samples) const {
    void* part = nullptr;
    DWORD size = 0;
    if (FAILED(m_pBuffer->Lock(0, 0, &part, &size, nullptr, nullptr, DSBLOCK_ENTIREBUFFER))) {
        return false;
    }
    std::memcpy(part, samples.data(), std::min<std::size_t>(size, samples.size()));
    return SUCCEEDED(m_pBuffer->Unlock(part, size, nullptr, 0));
}

bool CSound::play(float volume) {
    if (m_pBuffer == nullptr) {
        return false;
    }
    m_pBuffer->SetCurrentPosition(0);
    m_pBuffer->SetVolume(toDeviceVolume(volume));
    return SUCCEEDED(m_pBuffer->Play(0, 0, 0));
}

void CSound::stop() {
    if (m_pBuffer != nullptr) {
        m_pBuffer->Stop();
        m_pBuffer->SetCurrentPosition(0);
    }
}

bool CSound::isFinished() const {
    DWORD status = 0;
    return m_pBuffer == nullptr || FAILED(m_pBuffer->GetStatus(&status)) || (status & DSBSTATUS_PLAYING) == 0;
}
