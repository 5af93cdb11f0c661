#include "sandbox/project/project_file.h"

#include "sandbox/files/safe_file.h"
#include "sandbox/project/project_limits.h"

ProjectFault readProjectFile(const QString& path, Project& project, ProjectChecksums& checksums) {
    QByteArray text;
    if (const QString reason = readWholeFile(path, LARGEST_PROJECT_FILE, text); !reason.isEmpty()) {
        return {path, reason};
    }
    ProjectJsonReading reading = parseProjectJson(text);
    if (!reading.error.isEmpty()) {
        return {path, reading.error};
    }
    project.settings = std::move(reading.settings);
    project.original = std::move(reading.original);
    checksums = std::move(reading.checksums);
    return {};
}
