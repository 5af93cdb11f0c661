#include "platform/openal/al_sound_buffer.h"

#include "platform/openal/al_gain.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <span>

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
    : m_pDevice(std::move(device))
    , m_format(*description.lpwfxFormat)
    , m_nFlags(description.dwFlags)
    , m_bytes(description.dwBufferBytes) {}

HRESULT CAlSoundBuffer::makeSource() {
    const CAlDevice::CCurrent current(*m_pDevice);
    alGenBuffers(1, &m_nBuffer);
    alGenSources(1, &m_nSource);
    return alGetError() == AL_NO_ERROR ? S_OK : DSERR_OUTOFMEMORY;
}

CAlSoundBuffer::~CAlSoundBuffer() {
    const CAlDevice::CCurrent current(*m_pDevice);
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

HRESULT CAlSoundBuffer::GetCaps(DSBCAPS* caps) {
    if (caps == nullptr || caps->dwSize != sizeof *caps) {
        return DSERR_INVALIDPARAM;
    }
    *caps = {sizeof *caps, m_nFlags, static_cast<DWORD>(m_bytes.size()), 0, 0};
    return S_OK;
}

HRESULT CAlSoundBuffer::GetStatus(DWORD* status) {
    if (status == nullptr) {
        return DSERR_INVALIDPARAM;
    }
    *status = isPlaying() ? DSBSTATUS_PLAYING : 0;
    return S_OK;
}

bool CAlSoundBuffer::isPlaying() const {
    const CAlDevice::CCurrent current(*m_pDevice);
    ALint state = AL_INITIAL;
    alGetSourcei(m_nSource, AL_SOURCE_STATE, &state);
    return state == AL_PLAYING && m_pDevice->isConnected();
}

HRESULT CAlSoundBuffer::Lock(DWORD offset, DWORD bytes, void** part1, DWORD* size1, void** part2,
                             DWORD* size2, DWORD flags) {
    const auto whole = static_cast<DWORD>(m_bytes.size());
    if ((flags & DSBLOCK_ENTIREBUFFER) != 0) {
        bytes = whole;
    }
    if (part1 == nullptr || size1 == nullptr || offset >= whole || bytes == 0 || bytes > whole) {
        return DSERR_INVALIDPARAM;
    }
    *part1 = m_bytes.data() + offset;
    *size1 = std::min(bytes, whole - offset);
    if (part2 != nullptr && size2 != nullptr) {
        *size2 = bytes - *size1;
        *part2 = *size2 > 0 ? m_bytes.data() : nullptr;
    }
    return S_OK;
}

HRESULT CAlSoundBuffer::Unlock(void* part1, DWORD /*size1*/, void* /*part2*/, DWORD /*size2*/) {
    if (part1 == nullptr) {
        return DSERR_INVALIDPARAM;
    }
    const std::size_t width = m_format.wBitsPerSample / 8U;
    std::span<const BYTE> samples =
        std::span(m_bytes).first(m_bytes.size() - m_bytes.size() % m_format.nBlockAlign);
    std::vector<BYTE> both;
    try {
        if (m_format.nChannels == 1) {
            both = doubleSamples(samples, width);
            samples = both;
        }
    } catch (const std::bad_alloc&) {
        return DSERR_OUTOFMEMORY;
    }
    const CAlDevice::CCurrent current(*m_pDevice);
    alSourceStop(m_nSource);
    alSourcei(m_nSource, AL_BUFFER, 0); // a buffer in use takes no data
    alBufferData(m_nBuffer, width == 1 ? AL_FORMAT_STEREO8 : AL_FORMAT_STEREO16, samples.data(),
                 static_cast<ALsizei>(samples.size()), static_cast<ALsizei>(m_format.nSamplesPerSec));
    alSourcei(m_nSource, AL_BUFFER, static_cast<ALint>(m_nBuffer));
    return alGetError() == AL_NO_ERROR ? S_OK : DSERR_OUTOFMEMORY;
}

HRESULT CAlSoundBuffer::Play(DWORD /*reserved1*/, DWORD /*reserved2*/, DWORD flags) {
    if (flags != 0) {
        return DSERR_INVALIDPARAM;
    }
    if (!m_pDevice->isConnected()) {
        return DSERR_BUFFERLOST;
    }
    if (isPlaying()) {
        return S_OK;
    }
    const CAlDevice::CCurrent current(*m_pDevice);
    alSourcePlay(m_nSource);
    return alGetError() == AL_NO_ERROR ? S_OK : DSERR_BUFFERLOST;
}

HRESULT CAlSoundBuffer::SetCurrentPosition(DWORD position) {
    if (position >= m_bytes.size()) {
        return DSERR_INVALIDPARAM;
    }
    const CAlDevice::CCurrent current(*m_pDevice);
    alSourcei(m_nSource, AL_SAMPLE_OFFSET, static_cast<ALint>(position / m_format.nBlockAlign));
    return alGetError() == AL_NO_ERROR ? S_OK : DSERR_INVALIDPARAM;
}

HRESULT CAlSoundBuffer::SetVolume(LONG volume) {
    if ((m_nFlags & DSBCAPS_CTRLVOLUME) == 0) {
        return DSERR_CONTROLUNAVAIL;
    }
    if (!isVolume(volume)) {
        return DSERR_INVALIDPARAM;
    }
    const CAlDevice::CCurrent current(*m_pDevice);
    alSourcef(m_nSource, AL_GAIN, gainOf(volume));
    return S_OK;
}

HRESULT CAlSoundBuffer::Stop() {
    const CAlDevice::CCurrent current(*m_pDevice);
    alSourcePause(m_nSource);
    return S_OK;
}
