#pragma once

#include "engine/qx_api.h"

#include <memory>

enum qxFileMode { qxFileModeRead = 0 };

/// One engine data file, opened by bare name. A name resolves in the engine's list of directories, first hit
/// wins, without regard to letter case; a name with a separator, "..", a drive or a control character in it
/// does not resolve. An object of its own per use; the destructor closes.
class QX_API qxCFile {
public:
    /// Size of the buffer that getFullPathName fills, in characters.
    static constexpr int MAX_PATH_LENGTH = 260;

    qxCFile();
    virtual ~qxCFile();
    qxCFile(const qxCFile&) = delete;
    qxCFile& operator=(const qxCFile&) = delete;

    /// Open an existing file for reading; closes an earlier one first. True when the file is open.
    bool open(const char* fileName, qxFileMode mode);
    /// Size in bytes, 0 when no file is open or it is larger than an int holds.
    int getLength() const;
    /// Read `byteCount` bytes from the start of the file into `destination`; returns the number read.
    /// `flag` has no meaning here.
    int read(void* destination, int byteCount, bool flag);
    /// The name that the file was opened with, empty when none is open; valid until open or close.
    const char* getFilename() const;
    void close();

    /// Start a fresh search for names that match `pattern` ('*' and '?', letter case ignored) over all
    /// directories, sorted by name, each name once. The first name, or null. Valid until the next call.
    static const char* findFirst(const char* pattern);
    /// The next name of the current search, or null at its end and when there is no search.
    static const char* findNext();
    /// End the current search.
    static void findClose();

    /// Write the full path of an engine file into `buffer` (MAX_PATH_LENGTH characters, zero-terminated).
    /// False, with the buffer untouched, when the name does not resolve or the path does not fit.
    static bool getFullPathName(const char* fileName, char* buffer);

private:
    struct State;
    std::unique_ptr<State> m_pState;
};
