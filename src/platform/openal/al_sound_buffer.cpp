#include "platform/openal/al_sound_buffer.h"

#include <cstring>
#include <new>
#include <span>
#include <utility>

namespace {

bool isPcm(const WAVEFORMATEX& format) {
    if (format.wFormatTag == WAVE_FORMAT_PCM) {
        return true;
    }
    constexpr WORD EXTRA = sizeof(WAVEFORMATEXTENSIBLE) - sizeof(WAVEFORMATEX);
    if (format.wFormatTag != WAVE_FORMAT_EXTENSIBLE || format.cbSize < EXTRA) {
        return false;
    }
    WAVEFORMATEXTENSIBLE extensible;
    std::memcpy(&extensible, static_cast<const void*>(&format), sizeof extensible);
    const GUID subFormat = extensible.SubFormat;
    return subFormat == KSDATAFORMAT_SUBTYPE_PCM;
}

bool isPlayable(const WAVEFORMATEX& format) {
    const DWORD rate = format.nSamplesPerSec;
    return isPcm(format) && (format.nChannels == 1 || format.nChannels == 2) &&
           (format.wBitsPerSample == 8 || format.wBitsPerSample == 16) &&
           format.nBlockAlign == format.nChannels * format.wBitsPerSample / 8 && rate >= DSBFREQUENCY_MIN &&
           rate <= DSBFREQUENCY_MAX;
}

/// Every sample twice, for both channels.
std::vector<BYTE> doubleSamples(std::span<const BYTE> samples, std::size_t width) {
    std::vector<BYTE> both(samples.size() * 2);
    for (std::size_t at = 0; at < samples.size(); at += width) {
        std::memcpy(both.data() + at * 2, samples.data() + at, width);
        std::memcpy(both.data() + at * 2 + width, samples.data() + at, width);
    }
    return both;
}

} // namespace

HRESULT CAlSoundBuffer::create(std::shared_ptr<CAlDevice> device, const DSBUFFERDESC& description,
                               IDirectSoundBuffer** buffer) {
    if (description.lpwfxFormat == nullptr || description.dwBufferBytes < DSBSIZE_MIN ||
        description.dwBufferBytes > DSBSIZE_MAX) {
        return DSERR_INVALIDPARAM;
    }
    if (!isPlayable(*description.lpwfxFormat)) {
        return DSERR_BADFORMAT;
    }
    if (!device->isConnected()) {
        return DSERR_NODRIVER;
    }
    CAlSoundBuffer* made = new CAlSoundBuffer(std::move(device), description);
    if (const HRESULT result = made->makeSource(); FAILED(result)) {
        made->Release();
        return result;
    }
    *buffer = made;
    return S_OK;
}

CAlSoundBuffer::CAlSoundBuffer(std::shared_ptr<CAlDevice> device, const DSBUFFERDESC& description)
    : CAlBuffer(std::move(device), description), m_format(*description.lpwfxFormat) {}

HRESULT CAlSoundBuffer::makeSource() {
    const CAlDevice::CCurrent current(device());
    alGenBuffers(1, &m_nBuffer);
    alGenSources(1, &m_nSource);
    return alGetError() == AL_NO_ERROR ? S_OK : DSERR_OUTOFMEMORY;
}

CAlSoundBuffer::~CAlSoundBuffer() {
    const CAlDevice::CCurrent current(device());
    if (m_nSource != 0) {
        alDeleteSources(1, &m_nSource);
    }
    if (m_nBuffer != 0) {
        alDeleteBuffers(1, &m_nBuffer);
    }
}

HRESULT CAlSoundBuffer::QueryInterface(REFIID interfaceId, void** object) {
    return answerQuery(interfaceId, IID_IDirectSoundBuffer, object);
}

bool CAlSoundBuffer::isPlaying() const {
    const CAlDevice::CCurrent current(device());
    ALint state = AL_INITIAL;
    alGetSourcei(m_nSource, AL_SOURCE_STATE, &state);
    return state == AL_PLAYING;
}

HRESULT CAlSoundBuffer::Lock(DWORD offset, DWORD bytes, void** part1, DWORD* size1, void** part2,
                             DWORD* size2, DWORD flags) {
    const bool whole = (flags & DSBLOCK_ENTIREBUFFER) != 0 || (offset == 0 && bytes == size());
    if (part1 == nullptr || size1 == nullptr || !whole) {
        return DSERR_INVALIDPARAM;
    }
    try {
        m_locked.resize(size());
    } catch (const std::bad_alloc&) {
        return DSERR_OUTOFMEMORY;
    }
    *part1 = m_locked.data();
    *size1 = size();
    if (part2 != nullptr && size2 != nullptr) {
        *part2 = nullptr;
        *size2 = 0;
    }
    return S_OK;
}

HRESULT CAlSoundBuffer::Unlock(void* part1, DWORD /*size1*/, void* /*part2*/, DWORD /*size2*/) {
    if (part1 == nullptr || part1 != m_locked.data()) {
        return DSERR_INVALIDPARAM;
    }
    try {
        return passToSource(std::exchange(m_locked, {}));
    } catch (const std::bad_alloc&) {
        return DSERR_OUTOFMEMORY;
    }
}

HRESULT CAlSoundBuffer::passToSource(std::vector<BYTE> bytes) {
    const std::size_t width = m_format.wBitsPerSample / 8U;
    bytes.resize(bytes.size() - bytes.size() % m_format.nBlockAlign);
    if (m_format.nChannels == 1) {
        bytes = doubleSamples(bytes, width);
    }
    const CAlDevice::CCurrent current(device());
    alSourceStop(m_nSource);
    alSourcei(m_nSource, AL_BUFFER, 0); // a buffer in use takes no data
    alBufferData(m_nBuffer, width == 1 ? AL_FORMAT_STEREO8 : AL_FORMAT_STEREO16, bytes.data(),
                 static_cast<ALsizei>(bytes.size()), static_cast<ALsizei>(m_format.nSamplesPerSec));
    alSourcei(m_nSource, AL_BUFFER, static_cast<ALint>(m_nBuffer));
    return alGetError() == AL_NO_ERROR ? S_OK : DSERR_OUTOFMEMORY;
}

HRESULT CAlSoundBuffer::Play(DWORD /*reserved1*/, DWORD /*reserved2*/, DWORD flags) {
    if (flags != 0) {
        return DSERR_INVALIDPARAM;
    }
    if (!device().isConnected()) {
        return DSERR_BUFFERLOST;
    }
    if (isPlaying()) {
        return S_OK;
    }
    const CAlDevice::CCurrent current(device());
    alSourcePlay(m_nSource);
    return alGetError() == AL_NO_ERROR ? S_OK : DSERR_BUFFERLOST;
}

HRESULT CAlSoundBuffer::SetCurrentPosition(DWORD position) {
    if (position >= size()) {
        return DSERR_INVALIDPARAM;
    }
    const CAlDevice::CCurrent current(device());
    alSourcei(m_nSource, AL_SAMPLE_OFFSET, static_cast<ALint>(position / m_format.nBlockAlign));
    return alGetError() == AL_NO_ERROR ? S_OK : DSERR_INVALIDPARAM;
}

HRESULT CAlSoundBuffer::Stop() {
    const CAlDevice::CCurrent current(device());
    alSourcePause(m_nSource);
    return S_OK;
}

void CAlSoundBuffer::applyGain(float gain) {
    alSourcef(m_nSource, AL_GAIN, gain);
}
