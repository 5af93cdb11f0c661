// What the sound device is told when it is opened, on a device that only listens.
#include "platform/openal/com_object.h"
#include "platform/windows/functions.h"
#include "sound/sound_manager.h"

#include <gtest/gtest.h>

namespace {

int g_foreground = 0;
int g_desktop = 0;
HWND g_hForeground = nullptr;
HWND g_hGiven = nullptr;
DWORD g_level = 0;

HWND handleOf(int& window) {
    return reinterpret_cast<HWND>(&window);
}

class CListeningDevice final : public CComObject<IDirectSound> {
public:
    HRESULT QueryInterface(REFIID interfaceId, void** object) override {
        return answerQuery(interfaceId, IID_IDirectSound, object);
    }
    HRESULT CreateSoundBuffer(const DSBUFFERDESC*, IDirectSoundBuffer**, IUnknown*) override {
        return E_FAIL;
    }
    HRESULT SetCooperativeLevel(HWND window, DWORD level) override {
        g_hGiven = window;
        g_level = level;
        return S_OK;
    }
    HRESULT Initialize(const GUID*) override { return E_FAIL; }
};

TEST(DeviceWindow, IsTheForegroundWindowOrElseTheDesktop) {
    for (const auto& [foreground, given] :
         {std::pair(handleOf(g_foreground), handleOf(g_foreground)), {nullptr, handleOf(g_desktop)}}) {
        g_hForeground = foreground;
        EXPECT_EQ(g_soundManager.create(), 0);
        EXPECT_EQ(g_hGiven, given);
        EXPECT_EQ(g_level, DSSCL_PRIORITY);
        g_soundManager.release();
    }
}

} // namespace

HWND GetForegroundWindow() {
    return g_hForeground;
}

HWND GetDesktopWindow() {
    return handleOf(g_desktop);
}

HRESULT CoInitialize(void*) {
    return S_FALSE;
}

HRESULT CoCreateInstance(REFCLSID, IUnknown*, DWORD, REFIID interfaceId, void** object) {
    auto* device = new CListeningDevice;
    const HRESULT result = device->QueryInterface(interfaceId, object);
    device->Release();
    return result;
}
