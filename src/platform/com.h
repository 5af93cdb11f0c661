#pragma once

#include "platform/windows_types.h"

#include <array>

/// What an operation on a component object came to: negative when it failed.
using HRESULT = LONG;
using ULONG = DWORD;

constexpr HRESULT makeHresult(DWORD code) {
    return static_cast<HRESULT>(code);
}

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOINTERFACE = makeHresult(0x80004002U);
inline constexpr HRESULT E_POINTER = makeHresult(0x80004003U);
inline constexpr HRESULT E_FAIL = makeHresult(0x80004005U);
inline constexpr HRESULT E_OUTOFMEMORY = makeHresult(0x8007000EU);
inline constexpr HRESULT E_INVALIDARG = makeHresult(0x80070057U);
inline constexpr HRESULT CLASS_E_NOAGGREGATION = makeHresult(0x80040110U);
inline constexpr HRESULT REGDB_E_CLASSNOTREG = makeHresult(0x80040154U);
inline constexpr HRESULT CO_E_NOTINITIALIZED = makeHresult(0x800401F0U);

constexpr bool SUCCEEDED(HRESULT result) {
    return result >= 0;
}
constexpr bool FAILED(HRESULT result) {
    return result < 0;
}

struct GUID {
    DWORD Data1 = 0;
    WORD Data2 = 0;
    WORD Data3 = 0;
    std::array<BYTE, 8> Data4{};

    friend constexpr bool operator==(const GUID&, const GUID&) = default;
};
using IID = GUID;
using CLSID = GUID;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

inline constexpr IID IID_IUnknown{0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

/// A counted object: born with one reference, gone with its last. Never deleted from outside.
class IUnknown {
public:
    IUnknown(const IUnknown&) = delete;
    IUnknown& operator=(const IUnknown&) = delete;

    /// Writes the interface asked for, with a reference of its own, or null with E_NOINTERFACE.
    virtual HRESULT QueryInterface(REFIID interfaceId, void** object) = 0;
    /// Both return the new count.
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;

protected:
    IUnknown() = default;
    virtual ~IUnknown() = default;
};

inline constexpr DWORD CLSCTX_INPROC_SERVER = 0x1;

/// Starts component objects for the calling thread; `reserved` is null. S_FALSE when that was done before.
HRESULT CoInitialize(void* reserved);
/// Makes an object of the class, with one reference, and writes the interface asked for; null on failure.
HRESULT CoCreateInstance(REFCLSID classId, IUnknown* outer, DWORD context, REFIID interfaceId, void** object);
