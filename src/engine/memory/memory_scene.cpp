#include "engine/memory/memory_scene.h"

#include "engine/qx_texture.h"

#include <algorithm>

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
