#pragma once

#include "engine/qx_name.h"
#include "platform/direct_sound.h"

#include <span>

class qxCFile;

/// Flags of a sound loaded without any.
inline constexpr DWORD DEFAULT_SOUND_FLAGS =
    DSBCAPS_CTRL3D | DSBCAPS_CTRLVOLUME | DSBCAPS_MUTE3DATMAXDISTANCE | DSBCAPS_LOCDEFER;

/// One WAV file in a buffer of a sound device. A file that cannot be read or that the device does not play
/// gives a sound without a buffer, on which every operation does nothing. CSoundManager::loadSound makes
/// those of the toolkit and owns them.
class CSound {
public:
    /// Reads the whole of an open engine file; a sound recorded above `highestRate` frames a second is
    /// reduced. `flags` are DSBCAPS_ bits, 0 for DEFAULT_SOUND_FLAGS.
    CSound(qxCFile& file, DWORD flags, IDirectSound& device, DWORD highestRate);
    ~CSound();
    CSound(const CSound&) = delete;
    CSound& operator=(const CSound&) = delete;

    /// Plays once from the beginning, also when it is playing already. `volume` runs from 0.0 (silence) to
    /// 1.0; one outside leaves the volume as it was. True when the device started the buffer.
    bool play(float volume);
    /// Stops and rewinds.
    void stop();
    /// Also true without a buffer.
    bool isFinished() const;

    bool hasBuffer() const { return m_pBuffer != nullptr; }
    /// What the buffer was made from, its format already forgotten.
    const DSBUFFERDESC& description() const { return m_desc; }
    const char* name() const { return m_name.getString(); }

private:
    void createBuffer(std::span<BYTE> image, IDirectSound& device, DWORD highestRate);
    bool fillBuffer(std::span<const BYTE> samples) const;

    IDirectSoundBuffer* m_pBuffer = nullptr;
    DSBUFFERDESC m_desc{};
    qxCName m_name;
};
