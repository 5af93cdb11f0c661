#include "sandbox/files/file_operations.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

namespace {

CFileOperations g_systemOperations;
CFileOperations* g_pOperations = &g_systemOperations;

} // namespace

CFileOperations& CFileOperations::instance() {
    return *g_pOperations;
}

void CFileOperations::use(CFileOperations* operations) {
    g_pOperations = operations != nullptr ? operations : &g_systemOperations;
}

int CFileOperations::open(const char* path, int flags, mode_t mode) {
    return ::open(path, flags, mode);
}

ssize_t CFileOperations::write(int file, const void* bytes, std::size_t count) {
    return ::write(file, bytes, count);
}

int CFileOperations::sync(int file) {
    return ::fsync(file);
}

int CFileOperations::close(int file) {
    return ::close(file);
}

int CFileOperations::rename(const char* from, const char* to) {
    return std::rename(from, to);
}

int CFileOperations::unlink(const char* path) {
    return ::unlink(path);
}

int CFileOperations::makeFolder(const char* path) {
    constexpr mode_t ALL = 0777; // less the umask
    return ::mkdir(path, ALL);
}

int CFileOperations::removeFolder(const char* path) {
    return ::rmdir(path);
}
