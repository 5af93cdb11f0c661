#pragma once

#include "sandbox/project/project_settings.h"

#include <QByteArray>
#include <QJsonObject>
#include <QMap>
#include <QString>

/// The text of a project file. docs/project-format.md describes it.

/// Newest format that this program reads and the one it writes.
inline constexpr int PROJECT_FORMAT_VERSION = 2;

/// Sums of layer files by the key of the layer, "heights" and so on; of a file without sums none.
using ProjectChecksums = QMap<QString, QString>;

/// What came of parsing a project file.
struct ProjectJsonReading {
    ProjectSettings settings;
    QJsonObject original; ///< everything that the file holds, known or not, but its checksums
    ProjectChecksums checksums;
    QString error; ///< empty when `settings` is good; a clause without a full stop otherwise
};

/// Parse a whole project file. Whatever is missing, of the wrong kind or out of range is refused by name;
/// keys that this program does not know are passed over. A file that holds its own sum must fit it; one
/// without is older, or a person took the sums out to edit it.
ProjectJsonReading parseProjectJson(const QByteArray& text);

/// The text for `settings`, with the sums of the layers and its own. Keys of `original` that this program
/// does not know are written again: those of the file itself and of its objects, and those of list entries as
/// long as the list has kept its length.
QByteArray writeProjectJson(const ProjectSettings& settings, const QJsonObject& original,
                            const ProjectChecksums& layers);

/// The sum of a file's bytes: SHA-256, in hexadecimal.
QString checksumOf(const QByteArray& bytes);
