#pragma once

#include <array>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <string>
#include <thread>

/// Ends the process when an event hangs, with a message that names it and those before it; they are named at
/// a crash too. Watches from its own thread from construction to destruction; told of every event before it
/// is sent.
class CEventWatchdog {
public:
    /// `patience` is how long one event may take before it counts as never ending.
    explicit CEventWatchdog(std::chrono::seconds patience);
    ~CEventWatchdog();
    CEventWatchdog(const CEventWatchdog&) = delete;
    CEventWatchdog& operator=(const CEventWatchdog&) = delete;

    /// The next event begins, or the session's own work when it is empty: seconds that the one before took,
    /// without those in which its thread was ready to run and other programs had the processors, or the whole
    /// machine stood still.
    double begin(std::string event);
    /// The events begun last, one a line, newest last.
    std::string getLastEvents() const;

private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::size_t KEPT = 24;

    void watch();
    void notePause(Clock::time_point now);

    const std::chrono::seconds m_patience;
    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_bEnding = false;
    Clock::time_point m_begun = Clock::now();
    double m_fWaited = 0.0; // of the thread that sends the events, seconds since it began
    Clock::time_point m_woke = Clock::now();
    double m_fStoodStill = 0.0; // seconds since the event began
    std::array<std::string, KEPT> m_events;
    std::size_t m_nEvents = 0; // ever begun
    std::thread m_thread;
};
