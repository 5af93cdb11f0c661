#include "platform/openal/terminal_silence.h"

#include <cstdlib>

#include <dlfcn.h>

namespace {

constexpr const char* LOG_LEVEL = "ALSOFT_LOGLEVEL";

void ignoreMessage(const char*, int, const char*, int, const char*, void*) {}

/// ALSA's function that sets the calling thread's own message handler, or null where ALSA is not installed.
/// Looked up, not linked: OpenAL Soft loads the library itself when it wants it.
void* findAlsaHandlerSetter() {
    static void* const LIBRARY = dlopen("libasound.so.2", RTLD_LAZY | RTLD_LOCAL);
    return LIBRARY != nullptr ? dlsym(LIBRARY, "snd_lib_error_set_local") : nullptr;
}

} // namespace

CTerminalSilence::CTerminalSilence() {
    // OpenAL Soft reads its log level once, at its first call, and has no other way to set it. The process gets
    // its environment back.
    m_bSetLevel = std::getenv(LOG_LEVEL) == nullptr && setenv(LOG_LEVEL, "0", 0) == 0;
    m_setHandler = reinterpret_cast<SetHandler>(findAlsaHandlerSetter());
    if (m_setHandler != nullptr) {
        m_previous = m_setHandler(ignoreMessage);
    }
}

CTerminalSilence::~CTerminalSilence() {
    if (m_setHandler != nullptr) {
        m_setHandler(m_previous);
    }
    if (m_bSetLevel) {
        unsetenv(LOG_LEVEL);
    }
}
