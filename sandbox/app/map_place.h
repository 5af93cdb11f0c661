#pragma once

#include "sandbox/core/heightmap_png.h"
#include "sandbox/files/place_lock.h"
#include "sandbox/project/automatic_copy.h"

#include <QString>
#include <QStringList>

/// The file or folder that a map came from and goes back to. Other programs of the person are told that it is
/// open, and what they do to it meanwhile is noticed.
class CMapPlace {
public:
    /// A heightmap keeps the heights alone, a project all of the map.
    enum class Kind { NOTHING, HEIGHTMAP, PROJECT };

    /// It was just read or written. `layers` are the files of a project beside its project file, bare names.
    /// A sample, and a place that another program has open, are left to themselves: there is no path then.
    /// False in the second case.
    /// `stamp` is that of its files when they were read; empty when they were just written.
    bool become(Kind kind, const QString& path, HeightmapBits bits, const QStringList& layers,
                const QString& stamp = {});
    /// Of this kind, but without a path.
    void become(Kind kind, const QString& name);
    /// Where the work of an abandoned copy came from. False when another program has that place open: then
    /// there is no path.
    bool become(const CopyOrigin& origin);
    CopyOrigin origin() const;

    /// What a place consists of, the first being what makes it one.
    static QStringList filesOf(Kind kind, const QString& path, const QStringList& layers);

    Kind kind() const { return m_kind; }
    const QString& path() const { return m_strPath; }
    const QString& name() const { return m_strName; }
    HeightmapBits bits() const { return m_bits; }

    /// Another program has written there since; to save would lose that. Something that is gone is not lost.
    bool hasChangedOnDisk() const;
    bool isOpenElsewhere(const QString& path) const;

private:
    bool hold(const QString& path);

    Kind m_kind = Kind::NOTHING;
    QString m_strPath;
    QString m_strName;
    HeightmapBits m_bits = HeightmapBits::SIXTEEN;
    QStringList m_files; ///< absolute; first the one without which nothing is there
    QString m_strStamp;
    CPlaceLock m_lock;
};
