#pragma once

#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"

#include <functional>

/// A map that can be watched, made to fail, or made to call back: at every call, when the tiling is read, the
/// first thing a panel asks of its map, when its size is read, and when a height is set.
class CForwardingMap : public qxCMap {
public:
    std::function<void()> onCall = [] {};
    std::function<void()> onReadTiling = [] {};
    std::function<void()> onReadDim = [] {};
    std::function<void()> onSetHeight = [] {};

    qxCScene* getScene() const override { return inner().getScene(); }
    int getGridDim() const override {
        onReadDim();
        return inner().getGridDim();
    }
    int getPointHeight(int x, int z) const override { return inner().getPointHeight(x, z); }
    void setPointHeight(int x, int z, int h, bool d) override {
        onSetHeight();
        inner().setPointHeight(x, z, h, d);
    }
    qxCColour getPointColour(int l, int x, int z) const override { return inner().getPointColour(l, x, z); }
    void setPointColour(int l, int x, int z, const qxCColour& c) override {
        inner().setPointColour(l, x, z, c);
    }
    bool getPointWater(int x, int z) const override { return inner().getPointWater(x, z); }
    float getGradient(int x, int z) const override { return inner().getGradient(x, z); }
    int getPointHeightQ(int x, int z) const override { return inner().getPointHeightQ(x, z); }
    qxCColour getPointColourQ(int l, int x, int z) const override { return inner().getPointColourQ(l, x, z); }
    int getPointBlendQ(int l, int x, int z) const override { return inner().getPointBlendQ(l, x, z); }
    void setPointBlend(int l, int x, int z, int v) override { inner().setPointBlend(l, x, z, v); }
    void paintMultiTexture(int x, int z, float w) override { inner().paintMultiTexture(x, z, w); }
    void addWater(int x, int z) override { inner().addWater(x, z); }
    void removeWater(int x, int z) override { inner().removeWater(x, z); }
    int getNumMultiTextures() const override { return inner().getNumMultiTextures(); }
    qxCMapMultiTexture* getMultiTexture(int index) override { return inner().getMultiTexture(index); }
    qxCMapMultiTexture* addMultiTexture() override { return inner().addMultiTexture(); }
    void removeMultiTexture(int index) override { inner().removeMultiTexture(index); }
    void setCurrentMultiTexture(int index) override { inner().setCurrentMultiTexture(index); }
    int getCurrentMultiTexture() const override { return inner().getCurrentMultiTexture(); }
    void setTexture(qxMapLayerType layer, qxCTexture* t) override { inner().setTexture(layer, t); }
    qxCTexture* getTexture(qxMapLayerType layer) const override { return inner().getTexture(layer); }
    void setTextureTiling(int tiling) override { inner().setTextureTiling(tiling); }
    int getTextureTiling() const override {
        onReadTiling();
        return inner().getTextureTiling();
    }
    void invalidate() override { inner().invalidate(); }
    void setAmbient(const qxCColour& c) override { inner().setAmbient(c); }
    qxCColour getAmbient() const override { return inner().getAmbient(); }
    void setDiffuse(const qxCColour& c) override { inner().setDiffuse(c); }
    qxCColour getDiffuse() const override { return inner().getDiffuse(); }
    void setFlag(qxMapFlag flag) override { inner().setFlag(flag); }
    void clearFlag(qxMapFlag flag) override { inner().clearFlag(flag); }
    bool hasFlag(qxMapFlag flag) const override { return inner().hasFlag(flag); }
    int getNumTerrainDefs() const override { return inner().getNumTerrainDefs(); }
    _qxMapTerrainDef* getTerrainDef(int index) override { return inner().getTerrainDef(index); }
    qxCMapDetailRecord* addDetail(qxDetailType type, qxCTexture* texture, const qxCVector3d& p0,
                                  const qxCVector3d& p1, const qxCVector3d& p2, float scalar) override {
        return inner().addDetail(type, texture, p0, p1, p2, scalar);
    }
    qxCMapDetailRecord* addDetail(qxDetailType type, qxCTexture* texture, const qxCVector3d& point, float s1,
                                  float s2, float s3) override {
        return inner().addDetail(type, texture, point, s1, s2, s3);
    }
    void removeDetail(qxCMapDetailRecord* detail) override { inner().removeDetail(detail); }
    qxCMapDetailRecord* findDetail(float x, float z) override { return inner().findDetail(x, z); }
    void addEditCursor(int x, int z, int kind) override { inner().addEditCursor(x, z, kind); }
    void clearEditCursors() override { inner().clearEditCursors(); }
    void lockMarkerLayer() override { inner().lockMarkerLayer(); }
    void unlockMarkerLayer() override { inner().unlockMarkerLayer(); }
    void setMarkerPixel(qxMapMarkerType type, int x, int z, const qxCColour& c) override {
        inner().setMarkerPixel(type, x, z, c);
    }

    CMemoryMap& memory() { return m_map; }

private:
    CMemoryMap& inner() const {
        onCall();
        return m_map;
    }

    CMemoryScene m_scene;
    mutable CMemoryMap m_map{16, &m_scene};
};
