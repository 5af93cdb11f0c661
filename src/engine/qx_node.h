#pragma once

#include "engine/qx_api.h"

class qxCScene;

/// Something that stands in a scene.
class QX_API qxCNode {
public:
    virtual ~qxCNode() = default;

    /// The scene this node belongs to; null for a node outside any scene.
    virtual qxCScene* getScene() const = 0;
};
