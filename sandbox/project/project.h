#pragma once

#include "sandbox/project/project_settings.h"

#include <QJsonObject>
#include <QString>
#include <cstdint>
#include <vector>

/// A whole project in plain values. The layers have `edge` points a side, rows from the north.
struct Project {
    ProjectSettings settings;
    QJsonObject original; ///< the project file as it was read, empty for a new project
    int edge = 0;
    std::vector<std::uint16_t> heights;
    std::vector<std::uint16_t> blends;
    std::vector<qxCColour> colours;
    std::vector<std::uint8_t> water; ///< 1 for water, 0 for none
};

/// Why a project could not be read or written: the file that is at fault and a clause without a full stop.
struct ProjectFault {
    QString path;
    QString reason; ///< empty when nothing went wrong
};
