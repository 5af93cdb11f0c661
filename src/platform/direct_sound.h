#pragma once

#include "platform/com.h"
#include "platform/wave_format.h"
#include "platform/window_handle.h"

// The sound device. Volumes are hundredths of a decibel, -10000 (silent) to 0 (as recorded). Every failure
// is a negative HRESULT and leaves things as they were.

inline constexpr HRESULT DSERR_CONTROLUNAVAIL = makeHresult(0x8878001EU);
inline constexpr HRESULT DSERR_INVALIDPARAM = E_INVALIDARG;
inline constexpr HRESULT DSERR_INVALIDCALL = makeHresult(0x88780032U);
inline constexpr HRESULT DSERR_PRIOLEVELNEEDED = makeHresult(0x88780046U);
inline constexpr HRESULT DSERR_BADFORMAT = makeHresult(0x88780064U);
inline constexpr HRESULT DSERR_NODRIVER = makeHresult(0x88780078U);
inline constexpr HRESULT DSERR_BUFFERLOST = makeHresult(0x88780096U);
inline constexpr HRESULT DSERR_OUTOFMEMORY = E_OUTOFMEMORY;

inline constexpr DWORD DSSCL_PRIORITY = 2;

inline constexpr DWORD DSBCAPS_PRIMARYBUFFER = 0x00000001;
inline constexpr DWORD DSBCAPS_CTRL3D = 0x00000010;
inline constexpr DWORD DSBCAPS_CTRLVOLUME = 0x00000080;
inline constexpr DWORD DSBCAPS_MUTE3DATMAXDISTANCE = 0x00020000;
inline constexpr DWORD DSBCAPS_LOCDEFER = 0x00040000;

inline constexpr DWORD DSBLOCK_ENTIREBUFFER = 2;
inline constexpr DWORD DSBSTATUS_PLAYING = 1;
inline constexpr DWORD DSBSTATUS_BUFFERLOST = 2; ///< the device has vanished
inline constexpr LONG DSBVOLUME_MIN = -10000;
inline constexpr LONG DSBVOLUME_MAX = 0;
/// Sizes of a secondary buffer in bytes, and its frames a second.
inline constexpr DWORD DSBSIZE_MIN = 4;
inline constexpr DWORD DSBSIZE_MAX = 0x0FFFFFFF;
inline constexpr DWORD DSBFREQUENCY_MIN = 100;
inline constexpr DWORD DSBFREQUENCY_MAX = 200000;

/// A buffer to be made. `dwSize` is the structure's own size; a primary buffer has no bytes and no format.
struct DSBUFFERDESC {
    DWORD dwSize;
    DWORD dwFlags;
    DWORD dwBufferBytes;
    DWORD dwReserved;
    WAVEFORMATEX* lpwfxFormat; ///< read while the buffer is made, with its cbSize bytes unless it is PCM
    GUID guid3DAlgorithm;
};

struct DSBCAPS {
    DWORD dwSize;
    DWORD dwFlags;
    DWORD dwBufferBytes;
    DWORD dwUnlockTransferRate;
    DWORD dwPlayCpuOverhead;
};

struct D3DVECTOR {
    float x, y, z;
};

/// Where the listener is, in metres; y up, z ahead.
struct DS3DLISTENER {
    DWORD dwSize;
    D3DVECTOR vPosition;
    D3DVECTOR vVelocity;
    D3DVECTOR vOrientFront;
    D3DVECTOR vOrientTop;
    float flDistanceFactor;
    float flRolloffFactor;
    float flDopplerFactor;
};

static_assert(sizeof(DSBCAPS) == 20 && sizeof(DS3DLISTENER) == 64);

inline constexpr CLSID CLSID_DirectSound{
    0x47D4D946, 0x62E8, 0x11CF, {0x93, 0xBC, 0x44, 0x45, 0x53, 0x54, 0x00, 0x00}};
inline constexpr IID IID_IDirectSound{
    0x279AFA83, 0x4981, 0x11CE, {0xA5, 0x21, 0x00, 0x20, 0xAF, 0x0B, 0xE5, 0x60}};
inline constexpr IID IID_IDirectSoundBuffer{
    0x279AFA85, 0x4981, 0x11CE, {0xA5, 0x21, 0x00, 0x20, 0xAF, 0x0B, 0xE5, 0x60}};
inline constexpr IID IID_IDirectSound3DListener{
    0x279AFA84, 0x4981, 0x11CE, {0xA5, 0x21, 0x00, 0x20, 0xAF, 0x0B, 0xE5, 0x60}};

class IDirectSoundBuffer : public IUnknown {
public:
    virtual HRESULT GetCaps(DSBCAPS* caps) = 0;
    /// DSBSTATUS_ bits.
    virtual HRESULT GetStatus(DWORD* status) = 0;
    /// Gives access to the whole buffer, with DSBLOCK_ENTIREBUFFER or by its size; no other range is taken
    /// and the second part is null. What was there before is not given back: the block is to be filled.
    virtual HRESULT Lock(DWORD offset, DWORD bytes, void** part1, DWORD* size1, void** part2, DWORD* size2,
                         DWORD flags) = 0;
    /// Takes what was written into use; a buffer that plays stops.
    virtual HRESULT Unlock(void* part1, DWORD size1, void* part2, DWORD size2) = 0;
    /// Starts from the position, once; a buffer that plays goes on. `flags` is 0.
    virtual HRESULT Play(DWORD reserved1, DWORD reserved2, DWORD flags) = 0;
    /// In bytes from the start of the buffer.
    virtual HRESULT SetCurrentPosition(DWORD position) = 0;
    virtual HRESULT SetVolume(LONG volume) = 0;
    /// Keeps the position.
    virtual HRESULT Stop() = 0;
};

class IDirectSound3DListener : public IUnknown {
public:
    virtual HRESULT GetAllParameters(DS3DLISTENER* listener) = 0;
};

class IDirectSound : public IUnknown {
public:
    /// Makes a buffer with one reference, once the cooperative level is set. Secondary buffers take PCM of 8
    /// or 16 bits, one or two channels.
    virtual HRESULT CreateSoundBuffer(const DSBUFFERDESC* description, IDirectSoundBuffer** buffer,
                                      IUnknown* outer) = 0;
    /// `window` belongs to the program, or is the desktop; null is refused.
    virtual HRESULT SetCooperativeLevel(HWND window, DWORD level) = 0;
    /// Null names the default device, which is the one there is.
    virtual HRESULT Initialize(const GUID* device) = 0;
};
