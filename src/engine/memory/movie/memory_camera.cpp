#include "engine/memory/movie/memory_camera.h"

CMemoryCamera::CMemoryCamera(qxCScene* scene, const char* cameraName) : m_pScene(scene) {
    name.setString(cameraName);
}

CMemoryCamera::~CMemoryCamera() = default;

qxCScene* CMemoryCamera::getScene() const {
    return m_pScene;
}

float CMemoryCamera::getFieldOfView() const {
    return m_fFieldOfView;
}

void CMemoryCamera::setFieldOfView(float degrees) {
    m_fFieldOfView = degrees;
}
