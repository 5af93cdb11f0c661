#define AL_ALEXT_PROTOTYPES
#include "platform/openal/al_device.h"

#include "platform/openal/device_opener.h"
#include "platform/openal/terminal_silence.h"

#include <AL/alext.h>

#include <vector>

std::shared_ptr<CAlDevice> CAlDevice::open() {
    const CTerminalSilence silence;
    ALCdevice* device = deviceOpener().open();
    if (device == nullptr) {
        return nullptr;
    }
    std::vector<ALCint> attributes = deviceOpener().contextAttributes;
    attributes.push_back(0);
    ALCcontext* context = alcCreateContext(device, attributes.data());
    if (context == nullptr) {
        alcCloseDevice(device);
        return nullptr;
    }
    return std::shared_ptr<CAlDevice>(new CAlDevice(device, context));
}

CAlDevice::~CAlDevice() {
    const CTerminalSilence silence;
    alcDestroyContext(m_pContext);
    alcCloseDevice(m_pDevice);
}

bool CAlDevice::isConnected() const {
    ALCint connected = ALC_TRUE;
    alcGetIntegerv(m_pDevice, ALC_CONNECTED, 1, &connected);
    return connected != ALC_FALSE;
}

CAlDevice::CCurrent::CCurrent(const CAlDevice& device) : m_pPrevious(alcGetThreadContext()) {
    alcSetThreadContext(device.m_pContext);
    alGetError();
}

CAlDevice::CCurrent::~CCurrent() {
    alcSetThreadContext(m_pPrevious);
}
