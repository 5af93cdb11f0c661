#include "platform/openal/al_buffer.h"

#include <cmath>

CAlBuffer::CAlBuffer(std::shared_ptr<CAlDevice> device, const DSBUFFERDESC& description)
    : m_pDevice(std::move(device)), m_nFlags(description.dwFlags), m_nSize(description.dwBufferBytes) {}

HRESULT CAlBuffer::GetCaps(DSBCAPS* caps) {
    if (caps == nullptr || caps->dwSize != sizeof *caps) {
        return DSERR_INVALIDPARAM;
    }
    *caps = {sizeof *caps, m_nFlags, m_nSize, 0, 0};
    return S_OK;
}

HRESULT CAlBuffer::GetStatus(DWORD* status) {
    if (status == nullptr) {
        return DSERR_INVALIDPARAM;
    }
    if (!m_pDevice->isConnected()) {
        *status = DSBSTATUS_BUFFERLOST;
    } else {
        *status = isPlaying() ? DSBSTATUS_PLAYING : 0;
    }
    return S_OK;
}

HRESULT CAlBuffer::SetVolume(LONG volume) {
    if ((m_nFlags & DSBCAPS_CTRLVOLUME) == 0) {
        return DSERR_CONTROLUNAVAIL;
    }
    if (volume < DSBVOLUME_MIN || volume > DSBVOLUME_MAX) {
        return DSERR_INVALIDPARAM;
    }
    const CAlDevice::CCurrent current(*m_pDevice);
    applyGain(static_cast<float>(std::pow(10.0, volume / 2000.0)));
    return S_OK;
}
