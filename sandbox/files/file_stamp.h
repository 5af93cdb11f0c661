#pragma once

#include <QString>
#include <QStringList>

/// What the disk says of these files: another text when one of them was written, replaced or removed since.
/// Nothing is read.
QString stampOf(const QStringList& paths);
