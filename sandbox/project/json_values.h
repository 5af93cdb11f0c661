#pragma once

#include "engine/qx_colour.h"
#include "engine/qx_vector3d.h"

#include <QJsonArray>
#include <QString>

/// How values are written into a project file, the other way of CJsonReader.

/// "#AARRGGBB".
QString colourText(const qxCColour& colour);

/// The double whose text is the shortest that reads back as the same float: 0.3 and not 0.30000001192092896.
/// JSON has no infinity and no "not a number"; the nearest that it has take their place.
double shortest(float value);

/// [x, y, z]
QJsonArray vectorText(const qxCVector3d& vector);

/// The list of what `write` makes of each entry.
template <class List, class Write> QJsonArray listOf(const List& list, Write write) {
    QJsonArray array;
    for (const auto& entry : list) {
        array.append(write(entry));
    }
    return array;
}
