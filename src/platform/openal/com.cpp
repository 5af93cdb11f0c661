#include "platform/com.h"

#include "platform/openal/al_direct_sound.h"

#include <exception>

namespace {

thread_local bool g_bStarted = false;

HRESULT createDirectSound(REFIID interfaceId, void** object) {
    try {
        auto device = CAlDevice::open();
        if (!device) {
            return DSERR_NODRIVER;
        }
        auto* sound = new CAlDirectSound(std::move(device));
        const HRESULT result = sound->QueryInterface(interfaceId, object);
        sound->Release();
        return result;
    } catch (const std::exception&) {
        return E_OUTOFMEMORY;
    }
}

} // namespace

HRESULT CoInitialize(void* reserved) {
    if (reserved != nullptr) {
        return E_INVALIDARG;
    }
    const HRESULT result = g_bStarted ? S_FALSE : S_OK;
    g_bStarted = true;
    return result;
}

HRESULT CoCreateInstance(REFCLSID classId, IUnknown* outer, DWORD context, REFIID interfaceId,
                         void** object) {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (!g_bStarted) {
        return CO_E_NOTINITIALIZED;
    }
    if (outer != nullptr) {
        return CLASS_E_NOAGGREGATION;
    }
    if (classId != CLSID_DirectSound || context != CLSCTX_INPROC_SERVER) {
        return REGDB_E_CLASSNOTREG;
    }
    return createDirectSound(interfaceId, object);
}
