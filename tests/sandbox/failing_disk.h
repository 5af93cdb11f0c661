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
    /// SHORT_WRITE: the disk fills up in the middle of a write and stays full.
    enum class Fault { ONCE, EVER_AFTER, SHORT_WRITE };

    /// `failing` counts from 1.
    CFailingDisk(Fault fault, int failing) : m_fault(fault), m_nFailing(failing) {}

    /// Some operation failed.
    bool hasFailed() const { return m_bFailed; }

    int open(const char* path, int flags, mode_t mode) override {
        return fails() ? -1 : CFileOperations::open(path, flags, mode);
    }
    ssize_t write(int file, const void* bytes, std::size_t count) override {
        const bool breaks = m_nCount + 1 == m_nFailing && m_fault == Fault::SHORT_WRITE && count > 1;
        return fails() && !breaks ? -1 : CFileOperations::write(file, bytes, breaks ? count / 2 : count);
    }
    int sync(int /*file*/) override { return fails() ? -1 : 0; }
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
};

inline bool CFailingDisk::fails() {
    ++m_nCount;
    const bool now = m_nCount == m_nFailing || (m_nCount > m_nFailing && m_fault != Fault::ONCE);
    if (now) {
        m_bFailed = true;
        errno = m_fault == Fault::SHORT_WRITE ? ENOSPC : EIO;
    }
    return now;
}
