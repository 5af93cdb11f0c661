#pragma once

#include <ctime>
#include <deque>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

/// The events of a session: how long each took, and which were the last. When one hangs or crashes, the file
/// vesk_last_events.txt in the directory for temporary files ends with it.
class CEventLog {
public:
    /// The next event begins, or the session's own work when it is empty: seconds of processor time that the
    /// one before took. What the disk and other programs keep it waiting does not count.
    double begin(const std::string& event) {
        if (!event.empty()) {
            m_file << event << std::endl;
            m_events.push_back(event);
        }
        if (m_events.size() > KEPT) {
            m_events.pop_front();
        }
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        const double now = static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
        return now - std::exchange(m_fBegun, now);
    }
    /// The events begun last, one a line, newest last.
    std::string getLastEvents() const {
        std::string list;
        for (const std::string& event : m_events) {
            list += "  " + event + '\n';
        }
        return list;
    }

private:
    static constexpr std::size_t KEPT = 24;

    std::ofstream m_file{std::filesystem::temp_directory_path() / "vesk_last_events.txt"};
    std::deque<std::string> m_events;
    double m_fBegun = 0.0;
};
