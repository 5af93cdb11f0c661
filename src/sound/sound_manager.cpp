#include "sound/sound_manager.h"

#include "engine/qx_file.h"
#include "engine/qx_name.h"
#include "platform/windows/functions.h"
#include "sound/sound.h"

#include <memory>

CSoundManager g_soundManager;

namespace {

template <typename Interface> void releaseObject(Interface*& object) {
    if (object != nullptr) {
        object->Release();
        object = nullptr;
    }
}

void deleteSounds(CGrowArray<CSound*>& sounds) {
    while (sounds.getCount() > 0) {
        const std::unique_ptr<CSound> sound(sounds[0]);
        sounds.removeAt(0);
    }
}

} // namespace

int CSoundManager::create() {
    release();
    m_nSampleRate = 22050;
    if (FAILED(CoInitialize(nullptr))) {
        return -1;
    }
    void* device = nullptr;
    if (FAILED(
            CoCreateInstance(CLSID_DirectSound, nullptr, CLSCTX_INPROC_SERVER, IID_IDirectSound, &device))) {
        return -1;
    }
    m_pDevice = static_cast<IDirectSound*>(device);
    m_pDevice->Initialize(nullptr);
    const HWND foreground = GetForegroundWindow();
    m_pDevice->SetCooperativeLevel(foreground != nullptr ? foreground : GetDesktopWindow(), DSSCL_PRIORITY);
    setUpPrimaryBuffer();
    return 0;
}

bool CSoundManager::isDeviceLost() const {
    DWORD status = 0;
    return m_pPrimary != nullptr && SUCCEEDED(m_pPrimary->GetStatus(&status)) &&
           (status & DSBSTATUS_BUFFERLOST) != 0;
}

void CSoundManager::setUpPrimaryBuffer() {
    m_primaryDesc = {};
    m_primaryDesc.dwSize = sizeof m_primaryDesc;
    m_primaryDesc.dwFlags = DSBCAPS_PRIMARYBUFFER | DSBCAPS_CTRL3D | DSBCAPS_CTRLVOLUME;
    if (FAILED(m_pDevice->CreateSoundBuffer(&m_primaryDesc, &m_pPrimary, nullptr)) || m_pPrimary == nullptr) {
        return;
    }
    m_primaryCaps = {};
    m_primaryCaps.dwSize = sizeof m_primaryCaps;
    m_pPrimary->GetCaps(&m_primaryCaps);
    m_listenerParams = {};
    m_listenerParams.dwSize = sizeof m_listenerParams;
    void* listener = nullptr;
    if (FAILED(m_pPrimary->QueryInterface(IID_IDirectSound3DListener, &listener))) {
        releaseObject(m_pPrimary);
        return;
    }
    m_pListener = static_cast<IDirectSound3DListener*>(listener);
    m_pListener->GetAllParameters(&m_listenerParams);
}

void CSoundManager::release() {
    if (m_pDevice == nullptr) {
        return;
    }
    deleteSounds(m_loadedSounds);
    deleteSounds(m_oneShots);
    releaseObject(m_pListener);
    releaseObject(m_pPrimary);
    releaseObject(m_pDevice);
}

void CSoundManager::update() {
    if (m_pDevice == nullptr) {
        return;
    }
    for (int i = 0; i < m_oneShots.getCount();) {
        if (m_oneShots[i]->isFinished()) {
            const std::unique_ptr<CSound> sound(m_oneShots[i]);
            m_oneShots.removeAt(i);
        } else {
            ++i;
        }
    }
}

CSound* CSoundManager::loadSound(const qxCName& name, DWORD flags) {
    if (m_pDevice == nullptr) {
        return nullptr;
    }
    qxCFile file;
    if (!file.open(name.getString(), qxFileModeRead)) {
        return nullptr;
    }
    auto sound = std::make_unique<CSound>(file, flags, *m_pDevice, static_cast<DWORD>(m_nSampleRate));
    m_loadedSounds.append(sound.get());
    file.close();
    return sound.release();
}

void CSoundManager::stopAll() {
    for (CSound* sound : m_loadedSounds) {
        sound->stop();
    }
    for (CSound* sound : m_oneShots) {
        sound->stop();
    }
}
