#pragma once

#include <cstddef>
#include <sys/types.h>

/// What the sandbox asks of the file system when it writes: each function is its POSIX namesake, with -1 and
/// errno on failure. One instance serves the whole program; a test puts a failing one in its place.
class CFileOperations {
public:
    virtual ~CFileOperations() = default;

    virtual int open(const char* path, int flags, mode_t mode);
    /// May take fewer bytes than it was given, as a disk does that fills up.
    virtual ssize_t write(int file, const void* bytes, std::size_t count);
    virtual int sync(int file);
    virtual int close(int file);
    virtual int rename(const char* from, const char* to);
    virtual int unlink(const char* path);
    virtual int makeFolder(const char* path);
    virtual int removeFolder(const char* path);

    /// The one in force.
    static CFileOperations& instance();
    /// Put another in force, null for the system's own. The caller keeps it, and calls this when nothing is
    /// being written.
    static void use(CFileOperations* operations);
};
