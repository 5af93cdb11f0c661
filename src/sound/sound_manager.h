#pragma once

#include "platform/direct_sound.h"
#include "sound/grow_array.h"

class CSound;
class qxCName;

/// The toolkit's connection to the sound device, and the owner of every sound loaded. The one instance is
/// g_soundManager. While it has no device, every operation but create does nothing.
class CSoundManager {
public:
    /// Connects to the default device: 0, or -1 when there is none. A manager that is connected already is
    /// released first, and its sounds with it. Prints nothing.
    int create();
    /// Deletes every sound and closes the device. Pointers to sounds are dead from here on.
    void release();
    /// Once a host frame: deletes the one-shot sounds that have stopped.
    void update();
    /// Loads the engine file of that name. `flags` are DSBCAPS_ bits, 0 for the default. Null without a
    /// device and when the engine cannot open the file; a file that is no sound gives a sound without buffer.
    /// The sound lives until release.
    CSound* loadSound(const qxCName& name, DWORD flags);
    /// Stops and rewinds every sound.
    void stopAll();

    /// Null while disconnected.
    IDirectSound* device() const { return m_pDevice; }
    /// Whether the device has vanished since create: nothing plays any more.
    bool isDeviceLost() const;
    /// Sounds recorded above this many frames a second are reduced when loaded.
    int sampleRate() const { return m_nSampleRate; }
    const CGrowArray<CSound*>& loadedSounds() const { return m_loadedSounds; }
    /// Null when the primary buffer has none.
    IDirectSound3DListener* listener() const { return m_pListener; }

private:
    void setUpPrimaryBuffer();

    int m_nSampleRate = 22050;
    IDirectSound3DListener* m_pListener = nullptr;
    DS3DLISTENER m_listenerParams{};
    IDirectSoundBuffer* m_pPrimary = nullptr;
    DSBUFFERDESC m_primaryDesc{};
    DSBCAPS m_primaryCaps{};
    IDirectSound* m_pDevice = nullptr;
    CGrowArray<CSound*> m_loadedSounds;
    CGrowArray<CSound*> m_oneShots; ///< nothing of the toolkit adds to it
};

extern CSoundManager g_soundManager;
