// Which window the sound device is given, on a device that only listens.
#include "platform/openal/com_object.h"
#include "platform/windows/functions.h"
#include "sound/sound_manager.h"

#include <gtest/gtest.h>

namespace {

const HWND FOREGROUND = reinterpret_cast<HWND>(std::uintptr_t{1});
const HWND DESKTOP = reinterpret_cast<HWND>(std::uintptr_t{2});
HWND g_hForeground = nullptr;
HWND g_hGiven = nullptr;

class CListeningDevice final : public CComObject<IDirectSound> {
public:
    HRESULT QueryInterface(REFIID interfaceId, void** object) override {
        return answerQuery(interfaceId, IID_IDirectSound, object);
    }
    HRESULT CreateSoundBuffer(const DSBUFFERDESC*, IDirectSoundBuffer**, IUnknown*) override {
        return E_FAIL;
    }
    HRESULT SetCooperativeLevel(HWND window, DWORD level) override {
        g_hGiven = level == DSSCL_PRIORITY ? window : nullptr;
        return S_OK;
    }
    HRESULT Initialize(const GUID*) override { return E_FAIL; }
};

TEST(DeviceWindow, IsTheForegroundWindowOrElseTheDesktop) {
    for (const HWND foreground : {FOREGROUND, HWND{}}) {
        g_hForeground = foreground;
        EXPECT_EQ(g_soundManager.create(), 0);
        EXPECT_EQ(g_hGiven, foreground != nullptr ? FOREGROUND : DESKTOP);
        g_soundManager.release();
    }
}

} // namespace

HWND GetForegroundWindow() {
    return g_hForeground;
}

HWND GetDesktopWindow() {
    return DESKTOP;
}

HRESULT CoInitialize(void*) {
    return S_FALSE;
}

HRESULT CoCreateInstance(REFCLSID, IUnknown*, DWORD, REFIID, void** object) {
    *object = static_cast<IDirectSound*>(new CListeningDevice);
    return S_OK;
}
