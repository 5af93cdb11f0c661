#include "host/ui_events/event_log.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <utility>

#include <unistd.h>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#endif

namespace {

constexpr unsigned PATIENCE = 60; // seconds without an answer: none will come

CEventLog* g_open = nullptr;

double processorTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// What led to the end. Not safe in a signal handler by the letter; at worst a crash goes on as one.
void tellLastEvents() {
    if (const CEventLog* const log = std::exchange(g_open, nullptr)) {
        std::fprintf(stderr, "The last events, newest last:\n%s", log->getLastEvents().c_str());
    }
}

void tellAndEnd(int number) {
    std::signal(number, SIG_DFL);
    tellLastEvents();
    std::raise(number);
}

} // namespace

CEventLog::CEventLog() : m_fBegun(processorTime()) {
    g_open = this;
    std::signal(SIGALRM, &tellAndEnd);
#ifdef __SANITIZE_ADDRESS__
    __sanitizer_set_death_callback(&tellLastEvents); // it has its own handler for the rest
#else
    for (const int fault : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT}) {
        std::signal(fault, &tellAndEnd);
    }
#endif
}

CEventLog::~CEventLog() {
    alarm(0);
    g_open = nullptr;
}

double CEventLog::begin(std::string event) {
    alarm(PATIENCE);
    const double now = processorTime();
    if (!event.empty()) {
        m_events[m_nEvents++ % KEPT] = std::move(event);
    }
    return now - std::exchange(m_fBegun, now);
}

std::string CEventLog::getLastEvents() const {
    std::string list;
    for (std::size_t i = m_nEvents - std::min(m_nEvents, KEPT); i < m_nEvents; ++i) {
        list += "  " + std::to_string(i) + ": " + m_events[i % KEPT] + '\n';
    }
    return list;
}
