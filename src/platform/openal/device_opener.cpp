#include "platform/openal/device_opener.h"

#include "platform/openal/terminal_silence.h"

#include <AL/alext.h>

#include <string_view>
#include <utility>

namespace {

/// The name OpenAL Soft gives to its back end without output.
constexpr std::string_view NO_OUTPUT = "No Output";

/// Sounds whose sources exist at once; OpenAL Soft's own choice is 256.
constexpr ALCint MOST_SOURCES = 4096;

ALCdevice* openDefaultDevice() {
    const CTerminalSilence silence;
    ALCdevice* device = alcOpenDevice(nullptr);
    if (device == nullptr) {
        return nullptr;
    }
    const ALCchar* name = alcGetString(device, ALC_ALL_DEVICES_SPECIFIER);
    if (name != nullptr && name == NO_OUTPUT) {
        alcCloseDevice(device);
        return nullptr;
    }
    return device;
}

DeviceOpener& currentOpener() {
    static DeviceOpener opener = defaultDeviceOpener();
    return opener;
}

} // namespace

DeviceOpener defaultDeviceOpener() {
    return {openDefaultDevice, {ALC_HRTF_SOFT, ALC_FALSE, ALC_STEREO_SOURCES, MOST_SOURCES}};
}

void setDeviceOpener(DeviceOpener opener) {
    currentOpener() = std::move(opener);
}

const DeviceOpener& deviceOpener() {
    return currentOpener();
}
