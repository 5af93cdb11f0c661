#include "platform/openal/al_primary_buffer.h"

#include <AL/al.h>

#include <array>

namespace {

/// OpenAL looks along negative z, where this interface looks along positive z.
D3DVECTOR fromAl(const ALfloat* vector) {
    return {vector[0], vector[1], -vector[2]};
}

class CAlListener final : public CComObject<IDirectSound3DListener> {
public:
    explicit CAlListener(std::shared_ptr<CAlDevice> device) : m_pDevice(std::move(device)) {}

    HRESULT QueryInterface(REFIID interfaceId, void** object) override {
        return answerQuery(interfaceId, IID_IDirectSound3DListener, object);
    }

    HRESULT GetAllParameters(DS3DLISTENER* listener) override {
        if (listener == nullptr || listener->dwSize != sizeof *listener) {
            return DSERR_INVALIDPARAM;
        }
        const CAlDevice::CCurrent current(*m_pDevice);
        std::array<ALfloat, 6> values{};
        alGetListenerfv(AL_POSITION, values.data());
        listener->vPosition = fromAl(values.data());
        alGetListenerfv(AL_VELOCITY, values.data());
        listener->vVelocity = fromAl(values.data());
        alGetListenerfv(AL_ORIENTATION, values.data());
        listener->vOrientFront = fromAl(values.data());
        listener->vOrientTop = fromAl(values.data() + 3);
        listener->flDistanceFactor = 1.0F;
        listener->flRolloffFactor = 1.0F;
        listener->flDopplerFactor = alGetFloat(AL_DOPPLER_FACTOR);
        return S_OK;
    }

private:
    std::shared_ptr<CAlDevice> m_pDevice;
};

} // namespace

HRESULT CAlPrimaryBuffer::create(std::shared_ptr<CAlDevice> device, const DSBUFFERDESC& description,
                                 IDirectSoundBuffer** buffer) {
    if (description.dwBufferBytes != 0 || description.lpwfxFormat != nullptr) {
        return DSERR_INVALIDPARAM;
    }
    *buffer = new CAlPrimaryBuffer(std::move(device), description);
    return S_OK;
}

HRESULT CAlPrimaryBuffer::QueryInterface(REFIID interfaceId, void** object) {
    if (interfaceId == IID_IDirectSound3DListener && object != nullptr && (flags() & DSBCAPS_CTRL3D) != 0) {
        *object = static_cast<IDirectSound3DListener*>(new CAlListener(sharedDevice()));
        return S_OK;
    }
    return answerQuery(interfaceId, IID_IDirectSoundBuffer, object);
}

/// The mixed samples are the device's alone: what would need its priority above all is refused.
HRESULT CAlPrimaryBuffer::Lock(DWORD, DWORD, void**, DWORD*, void**, DWORD*, DWORD) {
    return DSERR_INVALIDCALL;
}

HRESULT CAlPrimaryBuffer::Unlock(void*, DWORD, void*, DWORD) {
    return DSERR_INVALIDCALL;
}

HRESULT CAlPrimaryBuffer::Play(DWORD, DWORD, DWORD) {
    return S_OK;
}

HRESULT CAlPrimaryBuffer::SetCurrentPosition(DWORD) {
    return DSERR_INVALIDCALL;
}

HRESULT CAlPrimaryBuffer::Stop() {
    return S_OK;
}

/// The mix never rests.
bool CAlPrimaryBuffer::isPlaying() const {
    return true;
}

void CAlPrimaryBuffer::applyGain(float gain) {
    alListenerf(AL_GAIN, gain);
}
