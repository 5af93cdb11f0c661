#include "host/ui_events/event_watchdog.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <utility>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/common_interface_defs.h>
#endif

namespace {

constexpr std::chrono::milliseconds BETWEEN_LOOKS{50};

/// Seconds that the calling thread has stood in the queue for a processor; 0 where the kernel does not count
/// them.
double waitedForProcessor() {
    std::ifstream statistics("/proc/thread-self/schedstat");
    double run = 0.0;
    double waited = 0.0; // both in nanoseconds
    return statistics >> run >> waited ? waited * 1e-9 : 0.0;
}

CEventWatchdog* g_watching = nullptr;

/// What led to a crash. Not safe in a signal handler by the letter; at worst a crash goes on as one.
void tellLastEvents() {
    if (CEventWatchdog* const watchdog = std::exchange(g_watching, nullptr)) {
        std::fprintf(stderr, "The last events, newest last:\n%s", watchdog->getLastEvents().c_str());
    }
}

/// A sanitizer has its own handler, and tells when it is about to end the process.
void tellBeforeTheEnd() {
#ifdef __SANITIZE_ADDRESS__
    __sanitizer_set_death_callback(&tellLastEvents);
#else
    for (const int fault : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT}) {
        std::signal(fault, [](int number) {
            std::signal(number, SIG_DFL);
            tellLastEvents();
            std::raise(number);
        });
    }
#endif
}

} // namespace

CEventWatchdog::CEventWatchdog(std::chrono::seconds patience)
    : m_patience(patience), m_fWaited(waitedForProcessor()), m_thread([this] { watch(); }) {
    g_watching = this;
    tellBeforeTheEnd();
}

CEventWatchdog::~CEventWatchdog() {
    g_watching = nullptr;
    {
        const std::lock_guard lock(m_mutex);
        m_bEnding = true;
    }
    m_wake.notify_one();
    m_thread.join();
}

double CEventWatchdog::begin(std::string event) {
    const std::lock_guard lock(m_mutex);
    const Clock::time_point now = Clock::now();
    notePause(now);
    const std::chrono::duration<double> spent = now - std::exchange(m_begun, now);
    const double waitedBefore = std::exchange(m_fWaited, waitedForProcessor());
    const double notItsOwn = std::max(m_fWaited - waitedBefore, std::exchange(m_fStoodStill, 0.0));
    if (!event.empty()) {
        m_events[m_nEvents++ % KEPT] = std::move(event);
    }
    return std::max(spent.count() - notItsOwn, 0.0);
}

std::string CEventWatchdog::getLastEvents() const {
    const std::lock_guard lock(m_mutex);
    std::string list;
    for (std::size_t i = m_nEvents - std::min(m_nEvents, KEPT); i < m_nEvents; ++i) {
        list += "  " + std::to_string(i) + ": " + m_events[i % KEPT] + '\n';
    }
    return list;
}

/// A thread that only sleeps wakes late when nothing on the machine runs.
void CEventWatchdog::notePause(Clock::time_point now) {
    const std::chrono::duration<double> late = now - m_woke - BETWEEN_LOOKS;
    m_fStoodStill += std::max(late.count(), 0.0);
    m_woke = now;
}

void CEventWatchdog::watch() {
    std::unique_lock lock(m_mutex);
    while (!m_bEnding) {
        m_wake.wait_for(lock, BETWEEN_LOOKS);
        notePause(Clock::now());
        if (!m_bEnding && Clock::now() - m_begun > m_patience) {
            lock.unlock();
            std::fprintf(stderr, "An event hangs for more than %d seconds.\n",
                         static_cast<int>(m_patience.count()));
            tellLastEvents();
            std::abort();
        }
    }
}
