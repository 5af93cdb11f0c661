#pragma once

#include "engine/qx_camera.h"

/// A camera in memory. It stands in the scene it was made for, which outlives it.
class QX_API CMemoryCamera final : public qxCCamera {
public:
    /// `scene` may be null; null for the name counts as empty.
    CMemoryCamera(qxCScene* scene, const char* cameraName);
    ~CMemoryCamera() override;

    qxCScene* getScene() const override;
    float getFieldOfView() const override;
    /// Degrees from the lower to the upper edge of the picture.
    void setFieldOfView(float degrees);

private:
    qxCScene* m_pScene;
    float m_fFieldOfView = 60.0F;
};
