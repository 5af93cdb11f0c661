#pragma once

#include "engine/qx_api.h"

class qxCTexture;

enum qxFogMode { qxFogModeOff = 0, qxFogModeOn = 1 };

/// The scene that owns the textures and the fog switch.
class QX_API qxCScene {
public:
    virtual ~qxCScene() = default;

    /// A new texture owned by the scene, not yet in its list.
    virtual qxCTexture* createTexture() = 0;
    /// Append a texture that this scene created to its list.
    virtual void addTexture(qxCTexture* texture) = 0;
    virtual int getNumTextures() const = 0;
    /// By index in the order of adding, null outside 0 to getNumTextures() - 1.
    virtual qxCTexture* getTexture(int index) const = 0;

    virtual qxFogMode getFogMode() const = 0;
    virtual void setFogMode(qxFogMode mode) = 0;
};
