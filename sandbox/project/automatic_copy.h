#pragma once

#include "sandbox/project/project_folder.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <vector>

/// Where a map belongs whose unsaved work is copied.
struct CopyOrigin {
    QString place; ///< its file or folder; empty when it has none of its own
    QString name;  ///< as a window's title has it
    bool isHeightmap = false;
    int bits = 16;     ///< a point's, of the heightmap
    QStringList files; ///< that the place consists of
    QString stamp;     ///< of these files, when they were read or written last
    friend bool operator==(const CopyOrigin&, const CopyOrigin&) = default;
};

/// A copy whose program came to an end that nobody wanted.
struct AbandonedCopy {
    QString folder;
    CopyOrigin origin;
    QDateTime time;
    qint64 bytes = 0;
};

/// A folder in the data folder of the user that holds an automatic copy of unsaved work. It belongs to the
/// program that writes it as long as that runs; left behind by a program that ended unasked, it waits for a
/// person's decision.
class CAutomaticCopy {
public:
    CAutomaticCopy() = default;
    ~CAutomaticCopy() { leave(); }
    CAutomaticCopy(const CAutomaticCopy&) = delete;
    CAutomaticCopy& operator=(const CAutomaticCopy&) = delete;

    /// The folder of all these folders.
    static QString room();
    /// Make a folder. Returns the reason of a failure, empty on success.
    QString claim();
    /// Take over the folder of an abandoned copy. False when another program was faster.
    bool takeOver(const QString& folder);
    /// Stop owning the folder and leave it as it is.
    void leave();
    /// Remove what this program wrote there, and the folder when nothing else is in it.
    void remove();

    bool isOwned() const { return m_nInUse >= 0; }
    const QString& folder() const { return m_strFolder; }

    /// All copies that no program owns any more, the newest first.
    static std::vector<AbandonedCopy> abandoned();
    /// Mark a project as a copy, and take the mark off again.
    static void mark(Project& project, const CopyOrigin& origin);
    static void unmark(Project& project);

private:
    QString m_strFolder;
    int m_nInUse = -1; ///< the file whose lock tells that the owner runs
};
