#pragma once

#include "engine/memory/memory_scene.h"

/// A point with a name that stands in a scene, so that a camera finds it as its target.
class CPlace final : public qxCNode {
public:
    explicit CPlace(CMemoryScene& scene) : m_scene(scene) {}

    qxCScene* getScene() const override { return &m_scene; }

private:
    CMemoryScene& m_scene;
};
