#pragma once

#include <QOpenGLTexture>
#include <memory>

class qxCTexture;

/// The image of a scene's texture as a repeating texture with all its smaller images; null when there is no
/// texture or its file cannot be loaded. Needs a current context.
std::unique_ptr<QOpenGLTexture> loadBaseTexture(const qxCTexture* texture);
