#pragma once

#include "engine/qx_node.h"

class qxCCamera;
class qxCTexture;

enum qxFogMode { qxFogModeOff = 0, qxFogModeOn = 1 };

/// The scene that owns the textures and the fog switch, and the root of the nodes that stand in it.
class QX_API qxCScene : public qxCNode {
public:
    /// A scene is its own.
    qxCScene* getScene() const override { return const_cast<qxCScene*>(this); }

    /// A new texture owned by the scene, not yet in its list.
    virtual qxCTexture* createTexture() = 0;
    /// Append a texture that this scene created to its list.
    virtual void addTexture(qxCTexture* texture) = 0;
    virtual int getNumTextures() const = 0;
    /// By index in the order of adding, null outside 0 to getNumTextures() - 1.
    virtual qxCTexture* getTexture(int index) const = 0;

    virtual qxFogMode getFogMode() const = 0;
    virtual void setFogMode(qxFogMode mode) = 0;

    /// Show the scene through this camera, which stays its owner's; null is ignored.
    virtual void selectCamera(qxCCamera* /*camera*/) {}
};
