#pragma once

#include <QString>
#include <QStringList>

/// The samples are kept as they are: what a person makes of one is saved in a place of their own.
bool isSample(const QString& path);

/// Where the images of a map's textures are looked for, the map's own folder first.
QStringList textureFoldersOf(const QString& mapFolder);

/// Where the sounds of a film are looked for, the map's own first.
QStringList soundFoldersOf(const QString& mapFolder);
