#pragma once

#include "engine/qx_node.h"

/// Searches a tree of nodes.
class QX_API qxCNodeIterator {
public:
    /// Where to search: this node and all below it; null finds nothing. Borrowed until the search is over.
    void setRootNode(qxCNode* root);
    /// The first node of that type, a parent before its children and those in their order; null when there is
    /// none.
    qxCNode* findFirst(qxNodeType type) const;

private:
    qxCNode* m_pRoot = nullptr;
};
