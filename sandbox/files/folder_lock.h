#pragma once

#include <QString>
#include <chrono>

/// Keeps other programs, and other threads of this one, from a folder while it lives. The lock is the
/// system's own on the folder: it leaves no file behind and ends with its program, however that ends.
class CFolderLock {
public:
    enum class Kind { SHARED, EXCLUSIVE };

    CFolderLock() = default;
    ~CFolderLock() { release(); }
    CFolderLock(const CFolderLock&) = delete;
    CFolderLock& operator=(const CFolderLock&) = delete;

    /// Take the lock; many may share it, one alone may have it exclusively. Waits for others for `patience`
    /// at the most. Returns the reason of a failure, empty on success; a file system that knows no locks
    /// counts as success.
    QString acquire(const QString& folder, Kind kind, std::chrono::milliseconds patience);
    void release();
    bool isHeld() const { return m_nFolder >= 0; }

private:
    int m_nFolder = -1;
};
