#pragma once

#include "sandbox/project/project_settings.h"

#include <QByteArray>
#include <QString>
#include <vector>

/// The details of a project as a layer file of their own: a million of them is 48 MB, where a list in the
/// project file would be ten times that. docs/project-format.md describes the bytes.

/// The layer's bytes.
QByteArray encodeDetails(const std::vector<ProjectDetail>& details);

/// Read a layer. Textures are positions below `textureCount` or none. Whatever is not finite, out of range or
/// of another length than the layer says is refused. Returns the reason of a refusal, empty on success.
QString decodeDetails(const QByteArray& bytes, int textureCount, std::vector<ProjectDetail>& details);

/// Whether the bytes begin as a layer of details does, of which `bytes` may be only the first few.
bool isDetailLayer(const QByteArray& bytes);
