#pragma once

#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"

#include <functional>

/// A map that can be watched, made to fail, or made to call back: when the tiling is read, the first thing a
/// panel asks of its map, when its size is read, and when a height is set.
class CForwardingMap : public qxCMap {
public:
    std::function<void()> onReadTiling = [] {};
    std::function<void()> onReadDim = [] {};
    std::function<void()> onSetHeight = [] {};

    qxCScene* getScene() const override { return m_map.getScene(); }
    int getGridDim() const override {
        onReadDim();
        return m_map.getGridDim();
    }
    int getPointHeight(int x, int z) const override { return m_map.getPointHeight(x, z); }
    void setPointHeight(int x, int z, int h, bool d) override {
        onSetHeight();
        m_map.setPointHeight(x, z, h, d);
    }
    qxCColour getPointColour(int l, int x, int z) const override { return m_map.getPointColour(l, x, z); }
    void setPointColour(int l, int x, int z, const qxCColour& c) override {
        m_map.setPointColour(l, x, z, c);
    }
    bool getPointWater(int x, int z) const override { return m_map.getPointWater(x, z); }
    float getGradient(int x, int z) const override { return m_map.getGradient(x, z); }
    int getPointHeightQ(int x, int z) const override { return m_map.getPointHeightQ(x, z); }
    qxCColour getPointColourQ(int l, int x, int z) const override { return m_map.getPointColourQ(l, x, z); }
    int getPointBlendQ(int l, int x, int z) const override { return m_map.getPointBlendQ(l, x, z); }
    void setPointBlend(int l, int x, int z, int v) override { m_map.setPointBlend(l, x, z, v); }
    void paintMultiTexture(int x, int z, float w) override { m_map.paintMultiTexture(x, z, w); }
    void addWater(int x, int z) override { m_map.addWater(x, z); }
    void removeWater(int x, int z) override { m_map.removeWater(x, z); }
    int getNumMultiTextures() const override { return m_map.getNumMultiTextures(); }
    qxCMapMultiTexture* getMultiTexture(int index) override { return m_map.getMultiTexture(index); }
    qxCMapMultiTexture* addMultiTexture() override { return m_map.addMultiTexture(); }
    void removeMultiTexture(int index) override { m_map.removeMultiTexture(index); }
    void setCurrentMultiTexture(int index) override { m_map.setCurrentMultiTexture(index); }
    int getCurrentMultiTexture() const override { return m_map.getCurrentMultiTexture(); }
    void setTexture(qxMapLayerType layer, qxCTexture* t) override { m_map.setTexture(layer, t); }
    qxCTexture* getTexture(qxMapLayerType layer) const override { return m_map.getTexture(layer); }
    void setTextureTiling(int tiling) override { m_map.setTextureTiling(tiling); }
    int getTextureTiling() const override {
        onReadTiling();
        return m_map.getTextureTiling();
    }
    void invalidate() override { m_map.invalidate(); }
    void setAmbient(const qxCColour& c) override { m_map.setAmbient(c); }
    qxCColour getAmbient() const override { return m_map.getAmbient(); }
    void setDiffuse(const qxCColour& c) override { m_map.setDiffuse(c); }
    qxCColour getDiffuse() const override { return m_map.getDiffuse(); }
    void setFlag(qxMapFlag flag) override { m_map.setFlag(flag); }
    void clearFlag(qxMapFlag flag) override { m_map.clearFlag(flag); }
    bool hasFlag(qxMapFlag flag) const override { return m_map.hasFlag(flag); }
    int getNumTerrainDefs() const override { return m_map.getNumTerrainDefs(); }
    _qxMapTerrainDef* getTerrainDef(int index) override { return m_map.getTerrainDef(index); }
    qxCMapDetailRecord* addDetail(qxDetailType type, qxCTexture* texture, const qxCVector3d& p0,
                                  const qxCVector3d& p1, const qxCVector3d& p2, float scalar) override {
        return m_map.addDetail(type, texture, p0, p1, p2, scalar);
    }
    qxCMapDetailRecord* addDetail(qxDetailType type, qxCTexture* texture, const qxCVector3d& point,
                                  float s1, float s2, float s3) override {
        return m_map.addDetail(type, texture, point, s1, s2, s3);
    }
    void removeDetail(qxCMapDetailRecord* detail) override { m_map.removeDetail(detail); }
    qxCMapDetailRecord* findDetail(float x, float z) override { return m_map.findDetail(x, z); }
    void addEditCursor(int x, int z, int kind) override { m_map.addEditCursor(x, z, kind); }
    void clearEditCursors() override { m_map.clearEditCursors(); }
    void lockMarkerLayer() override { m_map.lockMarkerLayer(); }
    void unlockMarkerLayer() override { m_map.unlockMarkerLayer(); }
    void setMarkerPixel(qxMapMarkerType type, int x, int z, const qxCColour& c) override {
        m_map.setMarkerPixel(type, x, z, c);
    }

    CMemoryMap& memory() { return m_map; }

private:
    CMemoryScene m_scene;
    CMemoryMap m_map{16, &m_scene};
};
