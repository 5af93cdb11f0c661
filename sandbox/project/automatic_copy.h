#pragma once

#include "sandbox/project/project_folder.h"

#include <QString>

/// A folder beside a map that holds an automatic copy of its unsaved work: "<map>.autosave", or
/// "<map>.autosave-2" and so on where that is taken. It belongs to the program that writes it as long as that
/// runs; left behind by a program that ended unasked, it waits for a person's decision. A folder of such a
/// name that holds anything else is a person's own and never touched.
class CAutomaticCopy {
public:
    CAutomaticCopy() = default;
    ~CAutomaticCopy() { leave(); }
    CAutomaticCopy(const CAutomaticCopy&) = delete;
    CAutomaticCopy& operator=(const CAutomaticCopy&) = delete;

    /// Make a folder for the copies of the map at `mapPath`. Returns the reason of a failure, empty on
    /// success.
    QString claim(const QString& mapPath);
    /// Take over a folder that findAbandoned gave. False when another program was faster.
    bool takeOver(const QString& folder);
    /// Stop owning the folder and leave it as it is.
    void leave();
    /// Remove what this program wrote there, and the folder when nothing else is in it.
    void remove();

    bool isOwned() const { return m_nInUse >= 0; }
    const QString& folder() const { return m_strFolder; }

    /// The newest copy of the map that no program owns any more; empty for none.
    static QString findAbandoned(const QString& mapPath);
    /// Mark a project as a copy, and take the mark off again.
    static void mark(Project& project);
    static void unmark(Project& project);

private:
    QString m_strFolder;
    int m_nInUse = -1; ///< the file whose lock tells that the owner runs
};
