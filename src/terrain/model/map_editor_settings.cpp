#include "terrain/model/map_editor_settings.h"

#include "terrain/model/map_editor_model.h"
#include "terrain/model/map_undo_list.h"

MapEditorSettings g_savedSettings;

void restoreSettings(CMapEditorModel& model) {
    MapEditorSettings& saved = g_savedSettings;
    if (!saved.valid || saved.map != model.m_pMap) {
        g_mapUndoList.clear();
        saved.map = model.m_pMap;
        saved.brushSize = BRUSH_CELL;
        saved.tool = TOOL_SELECT;
        saved.height = 0; // the strength stays as it was
    }
    model.m_nBrushSize = saved.brushSize;
    model.m_nStrength = saved.strength;
    model.m_nTool = saved.tool;
    model.m_nHeight = saved.height;
    saved.valid = true;
}

void saveSettings(const CMapEditorModel& model) {
    g_savedSettings = {.valid = true,
                       .map = model.m_pMap,
                       .tool = model.m_nTool,
                       .brushSize = model.m_nBrushSize,
                       .strength = model.m_nStrength,
                       .height = model.m_nHeight};
}
