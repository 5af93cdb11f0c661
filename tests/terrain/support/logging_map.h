#pragma once

#include "engine/qx_map.h"

#include <sstream>
#include <string>
#include <vector>

/// A map of 8 x 8 cells that holds nothing and writes down what it is told, one line a call. Marks, cursors
/// and reads are left out of the log but for the reads of the history.
class CLoggingMap : public qxCMap {
public:
    mutable std::vector<std::string> log;

    qxCScene* getScene() const override { return nullptr; }
    int getGridDim() const override { return 8; }

    int getPointHeight(int, int) const override { return 40; }
    void setPointHeight(int x, int z, int height, bool direct) override {
        write("height", x, z, height, direct ? "direct" : "indirect");
    }
    qxCColour getPointColour(int, int, int) const override { return {}; }
    void setPointColour(int layer, int x, int z, const qxCColour& colour) override {
        write("colour", layer, x, z, int{colour.r});
    }
    bool getPointWater(int, int) const override { return false; }
    float getGradient(int, int) const override { return 12.5F; }
    int getPointHeightQ(int x, int z) const override {
        write("read height", x, z);
        return 65536 + 7;
    }
    qxCColour getPointColourQ(int layer, int x, int z) const override {
        write("read colour", layer, x, z);
        return {1, 2, 3, 4};
    }
    int getPointBlendQ(int layer, int x, int z) const override {
        write("read blend", layer, x, z);
        return 9;
    }
    void setPointBlend(int layer, int x, int z, int value) override { write("blend", layer, x, z, value); }

    void paintMultiTexture(int x, int z, float weight) override { write("paint", x, z, weight); }
    void addWater(int x, int z) override { write("add water", x, z); }
    void removeWater(int x, int z) override { write("remove water", x, z); }

    int getNumMultiTextures() const override { return 0; }
    qxCMapMultiTexture* getMultiTexture(int) override { return nullptr; }
    qxCMapMultiTexture* addMultiTexture() override { return nullptr; }
    void removeMultiTexture(int) override {}
    void setCurrentMultiTexture(int) override {}
    int getCurrentMultiTexture() const override { return 0; }
    void setTexture(qxMapLayerType, qxCTexture*) override {}
    qxCTexture* getTexture(qxMapLayerType) const override { return nullptr; }
    void setTextureTiling(int) override {}
    int getTextureTiling() const override { return 1; }
    void invalidate() override {}
    void setAmbient(const qxCColour&) override {}
    qxCColour getAmbient() const override { return {}; }
    void setDiffuse(const qxCColour&) override {}
    qxCColour getDiffuse() const override { return {}; }
    void setFlag(qxMapFlag) override {}
    void clearFlag(qxMapFlag) override {}
    bool hasFlag(qxMapFlag) const override { return false; }
    int getNumTerrainDefs() const override { return 0; }
    _qxMapTerrainDef* getTerrainDef(int) override { return nullptr; }

    qxCMapDetailRecord* addDetail(qxDetailType, qxCTexture*, const qxCVector3d&, const qxCVector3d&,
                                  const qxCVector3d&, float) override {
        return nullptr;
    }
    qxCMapDetailRecord* addDetail(qxDetailType, qxCTexture*, const qxCVector3d&, float, float,
                                  float) override {
        return nullptr;
    }
    void removeDetail(qxCMapDetailRecord*) override {}
    qxCMapDetailRecord* findDetail(float, float) override { return nullptr; }
    void addEditCursor(int, int, int) override {}
    void clearEditCursors() override {}
    void lockMarkerLayer() override {}
    void unlockMarkerLayer() override {}
    void setMarkerPixel(qxMapMarkerType, int, int, const qxCColour&) override {}

private:
    template <typename... Values> void write(const char* call, const Values&... values) const {
        std::ostringstream line;
        line << call;
        ((line << ' ' << values), ...);
        log.push_back(line.str());
    }
};
