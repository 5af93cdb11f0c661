#pragma once

/// Keeps the sound libraries from writing to the terminal on this thread while it lives: a machine without
/// sound is nothing to report. A person who sets ALSOFT_LOGLEVEL still gets OpenAL Soft's log.
class CTerminalSilence {
public:
    CTerminalSilence();
    ~CTerminalSilence();
    CTerminalSilence(const CTerminalSilence&) = delete;
    CTerminalSilence& operator=(const CTerminalSilence&) = delete;

private:
    using Handler = void (*)(const char* file, int line, const char* function, int error, const char* format,
                             void* arguments);
    using SetHandler = Handler (*)(Handler);

    SetHandler m_setHandler = nullptr;
    Handler m_previous = nullptr;
    bool m_bSetLevel = false;
};
