#pragma once

#include "engine/qx_scene.h"

#include <memory>
#include <vector>

/// A scene in memory. Owns every texture it created until it is destroyed itself; the host keeps it alive
/// longer than the maps that stand in it.
class QX_API CMemoryScene final : public qxCScene {
public:
    CMemoryScene();
    ~CMemoryScene() override;
    CMemoryScene(const CMemoryScene&) = delete;
    CMemoryScene& operator=(const CMemoryScene&) = delete;

    qxCTexture* createTexture() override;
    /// Null, a texture of another scene, and one that is in the list already are ignored.
    void addTexture(qxCTexture* texture) override;
    int getNumTextures() const override;
    qxCTexture* getTexture(int index) const override;

    qxFogMode getFogMode() const override;
    void setFogMode(qxFogMode mode) override;

private:
    std::vector<std::unique_ptr<qxCTexture>> m_created;
    std::vector<qxCTexture*> m_list;
    qxFogMode m_fogMode = qxFogModeOff;
};
