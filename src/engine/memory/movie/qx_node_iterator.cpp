#include "engine/qx_node_iterator.h"

namespace {

qxCNode* firstBelow(qxCNode* node, qxNodeType type) {
    if (node == nullptr || node->getNodeType() == type) {
        return node;
    }
    const int children = node->getNumChildNodes();
    for (int i = 0; i < children; ++i) {
        if (qxCNode* const found = firstBelow(node->getChildNode(i), type)) {
            return found;
        }
    }
    return nullptr;
}

} // namespace

void qxCNodeIterator::setRootNode(qxCNode* root) {
    m_pRoot = root;
}

qxCNode* qxCNodeIterator::findFirst(qxNodeType type) const {
    return firstBelow(m_pRoot, type);
}
