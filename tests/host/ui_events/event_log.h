#pragma once

#include <array>
#include <cstddef>
#include <string>

/// The events of a session: how long each took, and which were the last when one fails, hangs or crashes. One
/// that hangs ends the process.
class CEventLog {
public:
    CEventLog();
    ~CEventLog();
    CEventLog(const CEventLog&) = delete;
    CEventLog& operator=(const CEventLog&) = delete;

    /// The next event begins, or the session's own work when it is empty: seconds of processor time that the
    /// one before took. What the disk and other programs keep it waiting does not count.
    double begin(std::string event);
    /// The events begun last, one a line, newest last.
    std::string getLastEvents() const;

private:
    static constexpr std::size_t KEPT = 24;

    std::array<std::string, KEPT> m_events;
    std::size_t m_nEvents = 0; // ever begun
    double m_fBegun;
};
