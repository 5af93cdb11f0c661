#pragma once

#include <AL/alc.h>

#include <functional>
#include <vector>

/// How the sound device is opened. Programs take the default; a test may open a device that it can listen to.
struct DeviceOpener {
    /// Opens a device, or returns null. The sound device closes it.
    std::function<ALCdevice*()> open;
    /// What its context is made with: pairs of attribute and value, without the closing 0.
    std::vector<ALCint> contextAttributes;
};

/// The machine's default device. One that plays into the void counts as none.
DeviceOpener defaultDeviceOpener();

/// Decides how devices are opened from now on; for one thread.
void setDeviceOpener(DeviceOpener opener);
const DeviceOpener& deviceOpener();
