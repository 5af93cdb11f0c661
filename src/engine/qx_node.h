#pragma once

class qxCScene;

/// Something that stands in a scene.
class qxCNode {
public:
    virtual ~qxCNode() = default;

    /// The scene this node belongs to; null for a node outside any scene.
    virtual qxCScene* getScene() const = 0;
};
