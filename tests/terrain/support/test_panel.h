#pragma once

#include "engine/memory/memory_map.h"
#include "terrain/model/map_editor_model.h"
#include "terrain/model/map_recording.h"
#include "terrain/model/map_undo_list.h"
#include "terrain/stroke_engine.h"

#include <gtest/gtest.h>

#include <algorithm>

/// A panel without a window.
class CTestPanel : public CMapEditorModel {
public:
    bool isDetails = false;
    qxCColour tint{255, 255, 255, 255};

    bool isDetailsTab() const override { return isDetails; }
    void showMembers() override {}
    qxCColour getToolTint() const override { return tint; }
};

/// A map of 16 x 16 cells, all heights 100, with a panel on it and an empty history.
class TerrainTest : public testing::Test {
protected:
    TerrainTest() {
        g_mapUndoList.clear();
        m_panel.m_pMap = &m_map;
        m_panel.m_nStrength = 10;
        m_panel.m_nBrushSize = 2;
        for (int z = 0; z <= m_map.getGridDim(); ++z) {
            for (int x = 0; x <= m_map.getGridDim(); ++x) {
                m_map.setPointHeight(x, z, LEVEL, false);
            }
        }
    }
    ~TerrainTest() override { g_mapUndoList.clear(); }

    void useTool(int tool) { m_panel.m_nTool = tool; }
    void start(int x, int z, int edge = 0, int corner = 0) { strokeStart(m_panel, x, z, edge, corner); }
    void update(int x, int z, int amount = 0) { strokeUpdate(m_panel, x, z, amount); }
    void stop() { strokeEnd(m_panel); }
    void select(int x0, int z0, int x1, int z1) {
        useTool(TOOL_SELECT);
        start(x0, z0);
        update(x1, z1);
        stop();
    }

    int changedHeights() const {
        return static_cast<int>(
            std::ranges::count_if(m_map.getHeights(), [](auto height) { return height != LEVEL; }));
    }

    static constexpr int LEVEL = 100;

    CMemoryMap m_map{16, nullptr};
    CTestPanel m_panel;
};
