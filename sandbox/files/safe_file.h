#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <cstdint>

/// Files that are whole or not there. Every write of the sandbox goes through here: it counts what the disk
/// took, waits until it is there, compares the size, and only then lets go of what was there before. Reasons
/// of failures are clauses for a person; an empty one means that all went well.

/// Read a whole file. Only a regular file is opened, at most `largest` bytes of it: a pipe, a device or a
/// folder in its place is refused at once instead of being waited for. Throws std::bad_alloc.
QString readWholeFile(const QString& path, std::int64_t largest, QByteArray& bytes);

/// Put `bytes` in the place of the file at `path`, or make it: written beside it first, then renamed. A file
/// that is there keeps its permissions, a link its target; one that is write-protected is refused. After a
/// failure the old file is as it was. What a killed writer left beside this file is removed.
QString replaceFile(const QString& path, QByteArrayView bytes);

/// Make a file that must not be there yet. `taken` tells a name that was there from a disk that failed; after
/// a failure there is no such file.
QString makeFile(const QString& path, QByteArrayView bytes, bool& taken);

/// Remove what killed writers left beside the file at `path`; replaceFile does it too.
void sweepParts(const QString& path);

/// Remove a file; one that is not there is no failure.
QString removeFile(const QString& path);

/// Make a folder and those above it. `made` becomes true when it was not there.
QString makeFolder(const QString& path, bool& made);

/// Wait until the names in a folder are on the disk.
QString syncFolder(const QString& path);

/// The system's reason for an error number, as a clause.
QString reasonOfError(int error);
