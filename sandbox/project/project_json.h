#pragma once

#include "sandbox/project/project_settings.h"

#include <QByteArray>
#include <QJsonObject>

/// The text of a project file. docs/project-format.md describes it.

/// Newest format that this program reads and the one it writes.
inline constexpr int PROJECT_FORMAT_VERSION = 1;

/// What came of parsing a project file.
struct ProjectJsonReading {
    ProjectSettings settings;
    QJsonObject original; ///< everything that the file holds, known or not
    QString error;        ///< empty when `settings` is good; a clause without a full stop otherwise
};

/// Parse a whole project file. Whatever is missing, of the wrong kind or out of range is refused by name;
/// keys that this program does not know are passed over.
ProjectJsonReading parseProjectJson(const QByteArray& text);

/// The text for `settings`. Keys of `original` that this program does not know are written again: those of
/// the file itself and of its objects, and those of list entries as long as the list has kept its length.
QByteArray writeProjectJson(const ProjectSettings& settings, const QJsonObject& original);
