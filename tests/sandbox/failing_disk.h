#pragma once

#include "sandbox/files/file_operations.h"

#include <cerrno>

/// The system's disk without the wait for the platter, which is not what these tests are about.
class CQuickDisk : public CFileOperations {
public:
    CQuickDisk() { use(this); }
    ~CQuickDisk() override { use(&m_before); }
    CQuickDisk(const CQuickDisk&) = delete;
    CQuickDisk& operator=(const CQuickDisk&) = delete;
    int sync(int /*file*/) override { return 0; }

private:
    CFileOperations& m_before = instance();
};

/// A disk on which one file operation, or each from there on, fails. In force while it lives.
class CFailingDisk : public CQuickDisk {
public:
    /// SHORT_WRITE: the disk fills up in the middle of a write and stays full. LOST_WRITE: it says that it
    /// took all of one write, and keeps the half.
    enum class Fault { ONCE, EVER_AFTER, SHORT_WRITE, LOST_WRITE };

    /// `failing` counts from 1.
    CFailingDisk(Fault fault, int failing) : m_fault(fault), m_nFailing(failing) {}

    /// Some operation failed.
    bool hasFailed() const { return m_bFailed; }
    /// What was written may not be on the platter.
    bool hasFailedToSync() const { return m_bSyncFailed; }

    int open(const char* path, int flags, mode_t mode) override {
        return fails() ? -1 : CFileOperations::open(path, flags, mode);
    }
    ssize_t write(int file, const void* bytes, std::size_t count) override {
        const bool breaks = m_nCount + 1 == m_nFailing && m_fault >= Fault::SHORT_WRITE && count > 1;
        if (fails() && !breaks) {
            return -1;
        }
        const ssize_t taken = CFileOperations::write(file, bytes, breaks ? count / 2 : count);
        return breaks && m_fault == Fault::LOST_WRITE ? static_cast<ssize_t>(count) : taken;
    }
    int sync(int /*file*/) override {
        const bool failed = fails();
        m_bSyncFailed = m_bSyncFailed || failed;
        return failed ? -1 : 0;
    }
    int close(int file) override {
        const int result = CFileOperations::close(file); // a descriptor is gone even when closing fails
        return fails() ? -1 : result;
    }
    int rename(const char* from, const char* to) override {
        return fails() ? -1 : CFileOperations::rename(from, to);
    }
    int unlink(const char* path) override { return fails() ? -1 : CFileOperations::unlink(path); }
    int makeFolder(const char* path) override { return fails() ? -1 : CFileOperations::makeFolder(path); }
    int removeFolder(const char* path) override { return fails() ? -1 : CFileOperations::removeFolder(path); }

private:
    bool fails();

    Fault m_fault;
    int m_nFailing;
    int m_nCount = 0;
    bool m_bFailed = false;
    bool m_bSyncFailed = false;
};

inline bool CFailingDisk::fails() {
    ++m_nCount;
    const bool now =
        m_nCount == m_nFailing ||
        (m_nCount > m_nFailing && (m_fault == Fault::EVER_AFTER || m_fault == Fault::SHORT_WRITE));
    if (now) {
        m_bFailed = true;
        errno = m_fault == Fault::SHORT_WRITE ? ENOSPC : EIO;
    }
    return now;
}
