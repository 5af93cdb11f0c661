#include "engine/memory/memory_scene.h"

#include "engine/qx_camera.h"
#include "engine/qx_texture.h"

#include <algorithm>

namespace {

bool isBelow(const qxCNode* root, const qxCNode* node) {
    if (root == node) {
        return true;
    }
    const int children = root != nullptr ? root->getNumChildNodes() : 0;
    for (int i = 0; i < children; ++i) {
        if (isBelow(root->getChildNode(i), node)) {
            return true;
        }
    }
    return false;
}

} // namespace

CMemoryScene::CMemoryScene() = default;

CMemoryScene::~CMemoryScene() = default;

qxCTexture* CMemoryScene::createTexture() {
    m_created.push_back(std::make_unique<qxCTexture>());
    return m_created.back().get();
}

void CMemoryScene::addTexture(qxCTexture* texture) {
    const bool isOurs =
        std::ranges::any_of(m_created, [texture](const auto& own) { return own.get() == texture; });
    if (isOurs && std::ranges::find(m_list, texture) == m_list.end()) {
        m_list.push_back(texture);
    }
}

int CMemoryScene::getNumTextures() const {
    return static_cast<int>(m_list.size());
}

qxCTexture* CMemoryScene::getTexture(int index) const {
    return index >= 0 && index < getNumTextures() ? m_list[static_cast<std::size_t>(index)] : nullptr;
}

qxFogMode CMemoryScene::getFogMode() const {
    return m_fogMode;
}

void CMemoryScene::setFogMode(qxFogMode mode) {
    m_fogMode = mode;
}

void CMemoryScene::addNode(qxCNode* node) {
    if (node != nullptr && std::ranges::find(m_nodes, node) == m_nodes.end()) {
        m_nodes.push_back(node);
    }
}

void CMemoryScene::removeNode(qxCNode* node) {
    if (m_pCamera != nullptr && isBelow(node, m_pCamera)) {
        m_pCamera = nullptr;
    }
    std::erase(m_nodes, node);
}

int CMemoryScene::getNumChildNodes() const {
    return static_cast<int>(m_nodes.size());
}

qxCNode* CMemoryScene::getChildNode(int index) const {
    return index >= 0 && index < getNumChildNodes() ? m_nodes[static_cast<std::size_t>(index)] : nullptr;
}

void CMemoryScene::selectCamera(qxCCamera* camera) {
    if (camera != nullptr) {
        m_pCamera = camera;
    }
}

qxCCamera* CMemoryScene::getSelectedCamera() const {
    return m_pCamera;
}
