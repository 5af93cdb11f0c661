#pragma once

#include <QStringList>

/// The files opened last, newest first, kept in the user's settings.
class CRecentFiles {
public:
    static constexpr int MAX_FILES = 8;

    QStringList paths() const;
    void add(const QString& path);
    void remove(const QString& path);
};
