#include "platform/openal/al_direct_sound.h"

#include "platform/openal/al_primary_buffer.h"
#include "platform/openal/al_sound_buffer.h"

#include <new>

HRESULT CAlDirectSound::QueryInterface(REFIID interfaceId, void** object) {
    return answerQuery(interfaceId, IID_IDirectSound, object);
}

HRESULT CAlDirectSound::CreateSoundBuffer(const DSBUFFERDESC* description, IDirectSoundBuffer** buffer,
                                          IUnknown* outer) {
    if (buffer == nullptr) {
        return DSERR_INVALIDPARAM;
    }
    *buffer = nullptr;
    if (description == nullptr || description->dwSize != sizeof *description) {
        return DSERR_INVALIDPARAM;
    }
    if (outer != nullptr) {
        return CLASS_E_NOAGGREGATION;
    }
    if (!m_bHasLevel) {
        return DSERR_PRIOLEVELNEEDED;
    }
    try {
        return (description->dwFlags & DSBCAPS_PRIMARYBUFFER) != 0
                   ? CAlPrimaryBuffer::create(m_pDevice, *description, buffer)
                   : CAlSoundBuffer::create(m_pDevice, *description, buffer);
    } catch (const std::bad_alloc&) {
        return DSERR_OUTOFMEMORY;
    }
}

/// OpenAL mixes the sounds of all programs whichever window is in front: every level is the same here.
HRESULT CAlDirectSound::SetCooperativeLevel(HWND window, DWORD level) {
    if (window == nullptr || level != DSSCL_PRIORITY) {
        return DSERR_INVALIDPARAM;
    }
    m_bHasLevel = true;
    return S_OK;
}

/// The device was opened when the object was made.
HRESULT CAlDirectSound::Initialize(const GUID* device) {
    return device == nullptr ? S_OK : DSERR_NODRIVER;
}
