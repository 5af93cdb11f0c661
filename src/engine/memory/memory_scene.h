#pragma once

#include "engine/qx_scene.h"

#include <memory>
#include <vector>

/// A scene in memory. Owns every texture it created until it is destroyed itself; the host keeps it alive
/// longer than the maps and movies that stand in it, and takes a node out before it frees it.
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

    /// Put a node below the scene, after those that stand there; null and one that stands there are ignored.
    /// The scene's own camera goes in first: it is then the first camera that a search finds.
    void addNode(qxCNode* node);
    /// Take it out. The selected camera is none then, where it was this node or one below it.
    void removeNode(qxCNode* node);
    int getNumChildNodes() const override;
    qxCNode* getChildNode(int index) const override;
    void selectCamera(qxCCamera* camera) override;
    /// The camera that the scene is shown through, null before the first is selected.
    qxCCamera* getSelectedCamera() const;

private:
    std::vector<std::unique_ptr<qxCTexture>> m_created;
    std::vector<qxCTexture*> m_list;
    std::vector<qxCNode*> m_nodes;
    qxCCamera* m_pCamera = nullptr;
    qxFogMode m_fogMode = qxFogModeOff;
};
