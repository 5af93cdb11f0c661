#pragma once

#include "engine/qx_api.h"
#include "engine/qx_name.h"
#include "engine/qx_vector3d.h"

class qxCScene;

/// Kinds of nodes that can be searched for.
enum qxNodeType { qxNodeOther = 0, qxNodeCamera = 1 };

/// How a transform given to a node joins the one it has: 0 takes its place.
enum qxTransformOp { qxTransformReplace = 0 };

/// Something that stands in a scene. Nodes form a tree, whose root is the scene; what a node owns of it is
/// told by its class. All but getScene() has a default body: a node needs to know no more of its place than
/// that.
class QX_API qxCNode {
public:
    /// World units.
    qxCVector3d position;
    /// Degrees: pitch, heading and roll, by the convention of qxCVector3d::toAngles().
    qxCVector3d rotation;
    /// As other nodes and records refer to it; empty for a node that nobody refers to.
    qxCName name;

    virtual ~qxCNode() = default;

    /// The scene this node belongs to; null for a node outside any scene.
    virtual qxCScene* getScene() const = 0;

    virtual qxNodeType getNodeType() const { return qxNodeOther; }
    /// Nodes directly below this one.
    virtual int getNumChildNodes() const { return 0; }
    /// Borrowed; null outside 0 to getNumChildNodes() - 1.
    virtual qxCNode* getChildNode(int /*index*/) const { return nullptr; }

    /// What is shown of the node has changed; `always` also where its box seems the same. The toolkit passes
    /// true after it changed a movie's flags.
    virtual void invalidateBoundingBox(bool /*always*/) {}
    /// Turn the node: degrees, as `rotation`.
    virtual void setRotation(const qxCVector3d& angles, qxTransformOp /*operation*/) { rotation = angles; }
};
